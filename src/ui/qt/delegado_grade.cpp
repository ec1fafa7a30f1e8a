#include "ui/qt/delegado_grade.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>

namespace ztolvan {
namespace {

// Texts kept at most; a grid of many distinct texts starts over past it.
constexpr qsizetype TextosGuardados = 4096;

// Letters of the Latin-1 range, which the grid's fonts carry.
bool SoLatin1(const QString& t) {
    return std::all_of(t.cbegin(), t.cend(), [](QChar c) { return c.unicode() < 0x100; });
}

// The height of the one line 't' makes in 'f', as a layout measures it.
qreal AlturaDaLinha(const QString& t, const QFont& f) {
    QTextLayout layout(t, f);
    layout.beginLayout();
    QTextLine linha = layout.createLine();
    if (linha.isValid()) linha.setNumColumns(static_cast<int>(t.size()));
    layout.endLayout();
    return linha.isValid() ? linha.ascent() + linha.descent() : 0;
}

} // namespace

const DelegadoGrade::Linha& DelegadoGrade::Texto(const QString& t, const QFont& f) const {
    // Measured at the first text too: the grid's font may be the default
    // one the member started with.
    if (alturaLinha_ == 0 || f != fonte_) {
        textos_.clear();
        fonte_ = f;
        alturaLinha_ = AlturaDaLinha(QStringLiteral("X"), f);
    }
    if (auto it = textos_.constFind(t); it != textos_.constEnd()) return *it;
    if (textos_.size() >= TextosGuardados) textos_.clear();
    Linha l{QStaticText(t), alturaLinha_};
    l.texto.setTextFormat(Qt::PlainText);
    l.texto.setPerformanceHint(QStaticText::AggressiveCaching);
    l.texto.prepare(QTransform(), f);
    // A letter from a fallback font makes the line as tall as both.
    if (!SoLatin1(t)) l.altura = AlturaDaLinha(t, f);
    return *textos_.insert(t, l);
}

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
    const QRect r = opcao.rect.adjusted(margem, 1, -margem, -1);
    const auto alinhamento = Qt::Alignment(i.data(Qt::TextAlignmentRole).toInt());
    p->setPen(opcao.palette.color(grupo, selecionada ? QPalette::HighlightedText : QPalette::Text));
    p->setFont(opcao.font);
    const Linha& l = Texto(texto, opcao.font);
    // Placed where a one-line layout in the cell would put it, to the pixel:
    // across by the text's width, down by the font's line height (the
    // text's own box varies with its letters), a centred line on a whole
    // pixel.
    const qreal largura = l.texto.size().width();
    qreal x = r.left();
    if (alinhamento & Qt::AlignRight)
        x = r.right() + 1 - largura;
    else if (alinhamento & Qt::AlignHCenter)
        x = r.left() + (r.width() - largura) / 2;
    qreal y = r.top();
    if (alinhamento & Qt::AlignBottom)
        y = r.bottom() + 1 - l.altura;
    else if (alinhamento & Qt::AlignVCenter)
        y = r.top() - qRound(-(r.height() - l.altura) / 2);
    // Cut at the cell's edge only when the text runs past it.
    const bool corta = largura > r.width() || l.altura > r.height();
    if (corta) {
        p->save();
        p->setClipRect(r, Qt::IntersectClip);
    }
    p->drawStaticText(QPointF(x, y), l.texto);
    if (corta) p->restore();
}

} // namespace ztolvan
