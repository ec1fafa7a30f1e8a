#include "ui/qt/modelo_grade.h"

#include <algorithm>
#include <cctype>

#include "ui/qt/comum_qt.h"

namespace ztolvan {
namespace {

// The old grid's "general" alignment: numbers to the right, texts to the left.
bool PareceNumero(const std::string& t) {
    bool digito = false;
    for (unsigned char c : t) {
        if (std::isdigit(c))
            digito = true;
        else if (c != ' ' && c != ',' && c != '.' && c != '-' && c != '+')
            return false;
    }
    return digito;
}

Qt::Alignment AlinhamentoQt(AlinhamentoGrade a, const std::string& texto) {
    if (a == AlinhamentoGrade::Geral)
        return Qt::AlignVCenter | (PareceNumero(texto) ? Qt::AlignRight : Qt::AlignLeft);
    const int n = static_cast<int>(a);
    const Qt::Alignment h[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    const Qt::Alignment v[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    return h[n / 3] | v[n % 3];
}

} // namespace

ModeloGrade::ModeloGrade(const Grade& g, QObject* pai)
    : QAbstractTableModel(pai), g_(g), linhas_(std::max(0, g.Rows() - 1)), colunas_(g.Cols()),
      versao_(g.Versao()), estrutura_(g.VersaoEstrutura()) {}

int ModeloGrade::rowCount(const QModelIndex& pai) const { return pai.isValid() ? 0 : linhas_; }
int ModeloGrade::columnCount(const QModelIndex& pai) const { return pai.isValid() ? 0 : colunas_; }

const std::string* ModeloGrade::Celula(int linha, int coluna) const {
    if (linha < 0 || linha >= g_.Rows() || coluna < 0 || coluna >= g_.Cols()) return nullptr;
    return &g_.TextMatrix(linha, coluna);
}

QVariant ModeloGrade::data(const QModelIndex& i, int papel) const {
    if (!i.isValid()) return {};
    const std::string* t = Celula(i.row() + 1, i.column());
    if (!t) return {};
    if (papel == Qt::DisplayRole) return Q(*t);
    if (papel == Qt::TextAlignmentRole)
        return QVariant::fromValue(AlinhamentoQt(g_.ColAlignment(i.column()), *t));
    return {};
}

QVariant ModeloGrade::headerData(int secao, Qt::Orientation o, int papel) const {
    if (o == Qt::Vertical) return papel == Qt::DisplayRole ? QVariant(secao + 1) : QVariant();
    if (papel != Qt::DisplayRole || secao < 0 || secao >= colunas_) return {};
    const std::string* t = Celula(0, secao);
    return t ? Q(*t) : QVariant();
}

Qt::ItemFlags ModeloGrade::flags(const QModelIndex& i) const {
    return i.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

ModeloGrade::Mudanca ModeloGrade::Atualiza() {
    if (g_.VersaoEstrutura() != estrutura_) {
        beginResetModel();
        linhas_ = std::max(0, g_.Rows() - 1);
        colunas_ = g_.Cols();
        estrutura_ = g_.VersaoEstrutura();
        versao_ = g_.Versao();
        endResetModel();
        return Mudanca::Estrutura;
    }
    if (g_.Versao() == versao_) return Mudanca::Nenhuma;
    versao_ = g_.Versao();
    if (colunas_ > 0) {
        emit headerDataChanged(Qt::Horizontal, 0, colunas_ - 1);
        if (linhas_ > 0) emit dataChanged(index(0, 0), index(linhas_ - 1, colunas_ - 1));
    }
    return Mudanca::Textos;
}

} // namespace ztolvan
