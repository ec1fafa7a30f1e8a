#pragma once
#include <QAbstractTableModel>
#include <cstdint>

#include "screens/grade.h"

namespace ztolvan {

// A Grade read in place: row 0 is the horizontal header, rows 1..n the data
// rows 0..n-1. Nothing is copied. The grid changes under the view's feet,
// so the model answers the counts it last announced and Atualiza() tells
// Qt what changed, in one block.
class ModeloGrade : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit ModeloGrade(const Grade& g, QObject* pai = nullptr);

    int rowCount(const QModelIndex& pai = {}) const override;
    int columnCount(const QModelIndex& pai = {}) const override;
    QVariant data(const QModelIndex& i, int papel = Qt::DisplayRole) const override;
    QVariant headerData(int secao, Qt::Orientation o, int papel = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& i) const override;

    enum class Mudanca { Nenhuma, Textos, Estrutura };
    // A reset when rows or columns changed, one dataChanged over the whole
    // grid (and the header) when only texts, widths or alignments did.
    Mudanca Atualiza();

  private:
    const std::string* Celula(int linha, int coluna) const;
    bool Marcada(int linha) const; // data row, 0-based
    int PrimeiraVisivel() const;

    const Grade& g_;
    int linhas_ = 0, colunas_ = 0;
    uint64_t versao_ = 0, estrutura_ = 0;
};

} // namespace ztolvan
