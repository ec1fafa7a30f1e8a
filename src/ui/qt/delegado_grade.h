#pragma once
#include <QFont>
#include <QHash>
#include <QStaticText>
#include <QStyledItemDelegate>

namespace ztolvan {

// Paints a grid cell as the old grid did: its background, its text on one
// line cut at the cell's edge, nothing else. The style's item painting lays
// out every visible cell's text as a paragraph; a grid redrawn after each
// load of thousands of rows pays that on every paint.
class DelegadoGrade : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* p, const QStyleOptionViewItem& opcao, const QModelIndex& i) const override;

  private:
    // A text laid out once for the grid's font: a grid's columns repeat
    // their texts (a status, a supplier, a packaging), and every repaint (a
    // moved row, a mark, a reload) draws the same texts again.
    struct Linha {
        QStaticText texto;
        qreal altura = 0; // of its line: a mark's tick comes from another font
    };
    const Linha& Texto(const QString& t, const QFont& f) const;
    mutable QHash<QString, Linha> textos_;
    mutable QFont fonte_;
    mutable qreal alturaLinha_ = 0; // of a line in the grid's font alone
};

} // namespace ztolvan
