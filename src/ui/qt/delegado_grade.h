#pragma once
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
};

} // namespace ztolvan
