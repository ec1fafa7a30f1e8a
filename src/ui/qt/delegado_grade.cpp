#include "ui/qt/delegado_grade.h"

#include <QPainter>

namespace ztolvan {

void DelegadoGrade::paint(QPainter* p, const QStyleOptionViewItem& opcao, const QModelIndex& i) const {
    const bool selecionada = opcao.state & QStyle::State_Selected;
    const QPalette::ColorGroup grupo = !(opcao.state & QStyle::State_Enabled) ? QPalette::Disabled
                                       : (opcao.state & QStyle::State_Active) ? QPalette::Active
                                                                               : QPalette::Inactive;
    if (selecionada) {
        p->fillRect(opcao.rect, opcao.palette.brush(grupo, QPalette::Highlight));
    } else {
        const QVariant fundo = i.data(Qt::BackgroundRole);
        if (fundo.isValid()) p->fillRect(opcao.rect, fundo.value<QColor>());
    }
    const QString texto = i.data(Qt::DisplayRole).toString();
    if (texto.isEmpty()) return;
    const int margem = 3;
    p->setPen(opcao.palette.color(grupo, selecionada ? QPalette::HighlightedText : QPalette::Text));
    p->setFont(opcao.font);
    const auto alinhamento = Qt::Alignment(i.data(Qt::TextAlignmentRole).toInt());
    p->drawText(opcao.rect.adjusted(margem, 1, -margem, -1), int(alinhamento) | Qt::TextSingleLine, texto);
}

} // namespace ztolvan
