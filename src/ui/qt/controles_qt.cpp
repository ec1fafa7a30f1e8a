#include "ui/qt/controles_qt.h"

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QTextCursor>
#include <QToolButton>
#include <algorithm>

#include "screens/auxiliary/rodape.h"
#include "ui/qt/comum_qt.h"

namespace ztolvan {

FormaQt::FormaQt(QWidget* pai) : QWidget(pai) { setAttribute(Qt::WA_TransparentForMouseEvents); }

void FormaQt::Mostra(const Forma& f) {
    const QColor fundo = CorQt(f.BackColor), preenche = CorQt(f.FillColor), borda = CorQt(f.BorderColor);
    const bool opaca = !f.Transparente;
    if (fundo == fundo_ && preenche == preenchimento_ && borda == borda_ && opaca == opaca_ &&
        f.Preenchida == preenchida_ && f.BorderWidth == larguraBorda_)
        return;
    fundo_ = fundo;
    preenchimento_ = preenche;
    borda_ = borda;
    opaca_ = opaca;
    preenchida_ = f.Preenchida;
    larguraBorda_ = f.BorderWidth;
    update();
}

void FormaQt::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QRect r = rect();
    if (opaca_) p.fillRect(r, fundo_);
    if (preenchida_) p.fillRect(r, preenchimento_);
    const int b = std::min({larguraBorda_, r.width(), r.height()});
    if (b <= 0) return;
    p.fillRect(QRect(r.left(), r.top(), r.width(), b), borda_);
    p.fillRect(QRect(r.left(), r.bottom() - b + 1, r.width(), b), borda_);
    p.fillRect(QRect(r.left(), r.top(), b, r.height()), borda_);
    p.fillRect(QRect(r.right() - b + 1, r.top(), b, r.height()), borda_);
}

MolduraQt::MolduraQt(QWidget* pai) : QWidget(pai) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void MolduraQt::Mostra(const Moldura& m) {
    const QString t = Q(m.Caption);
    if (t == titulo_) return;
    titulo_ = t;
    update();
}

void MolduraQt::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QFontMetrics fm(font());
    const int meio = fm.height() / 2;
    const QRect r(0, meio, width() - 2, height() - meio - 2);
    p.setPen(palette().color(QPalette::Mid));
    p.drawRect(r);
    p.setPen(palette().color(QPalette::Light));
    p.drawRect(r.translated(1, 1));
    if (titulo_.isEmpty()) return;
    const QRect texto(6, 0, fm.horizontalAdvance(titulo_) + 4, fm.height());
    p.fillRect(texto, palette().color(QPalette::Window));
    p.setPen(palette().color(QPalette::WindowText));
    p.drawText(texto, Qt::AlignCenter, titulo_);
}

namespace {

// Length as the model counts it: a line break is "\r\n".
qsizetype LarguraModelo(const QString& t) { return t.size() + t.count(QLatin1Char('\n')); }

} // namespace

CaixaMultiLinhaQt::CaixaMultiLinhaQt(QWidget* pai) : QPlainTextEdit(pai) {
    // Tab moves on, as in every other field; a tab character has no place in a record.
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        if (!mostrando_) Editado();
    });
}

void CaixaMultiLinhaQt::Mostra(std::string_view texto, int maximo, bool travada) {
    maximo_ = maximo;
    if (isReadOnly() != travada) setReadOnly(travada);
    QString t = Q(texto);
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    t.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    if (toPlainText() == t) return;
    mostrando_ = true;
    setPlainText(t);
    mostrando_ = false;
}

// The frame is a one-line field's, so the focus shows on it as on every other field.
bool CaixaMultiLinhaQt::event(QEvent* e) {
    if (e->type() != QEvent::Paint) return QPlainTextEdit::event(e);
    QPainter p(this);
    QStyleOptionFrame o;
    o.initFrom(this);
    o.rect = frameRect();
    o.lineWidth = frameWidth();
    o.state |= QStyle::State_Sunken;
    if (isReadOnly()) o.state |= QStyle::State_ReadOnly;
    style()->drawPrimitive(QStyle::PE_FrameLineEdit, &o, &p, this);
    return true;
}

void CaixaMultiLinhaQt::focusInEvent(QFocusEvent* e) {
    QPlainTextEdit::focusInEvent(e);
    update();
}

void CaixaMultiLinhaQt::focusOutEvent(QFocusEvent* e) {
    QPlainTextEdit::focusOutEvent(e);
    update();
}

std::string CaixaMultiLinhaQt::Texto() const {
    QString t = toPlainText();
    t.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    return S(t);
}

int CaixaMultiLinhaQt::Cursor() const {
    const int p = textCursor().position();
    return static_cast<int>(LarguraModelo(toPlainText().left(p)));
}

int CaixaMultiLinhaQt::PosicaoTela(int posicaoModelo) const {
    const QString t = toPlainText();
    // A position inside a break stands before it.
    int i = 0;
    for (int m = 0; i < t.size(); ++i) {
        m += t[i] == QLatin1Char('\n') ? 2 : 1;
        if (m > posicaoModelo) break;
    }
    return i;
}

void CaixaMultiLinhaQt::Seleciona(int inicio, int tamanho) {
    QTextCursor c = textCursor();
    c.setPosition(PosicaoTela(inicio));
    if (tamanho > 0) c.setPosition(PosicaoTela(inicio + tamanho), QTextCursor::KeepAnchor);
    setTextCursor(c);
}

// What goes past the limit is what was just typed or pasted, right before
// the caret (as a one-line field refuses it); anything still over, from the end.
void CaixaMultiLinhaQt::Editado() {
    if (maximo_ > 0) {
        const QString t = toPlainText();
        qsizetype excesso = LarguraModelo(t) - maximo_;
        if (excesso > 0) {
            QTextCursor c = textCursor();
            const int fim = c.position();
            int inicio = fim;
            for (; excesso > 0 && inicio > 0; --inicio)
                excesso -= t[inicio - 1] == QLatin1Char('\n') ? 2 : 1;
            mostrando_ = true;
            c.setPosition(inicio);
            c.setPosition(fim, QTextCursor::KeepAnchor);
            c.removeSelectedText();
            if (excesso > 0) {
                c.setPosition(PosicaoTela(maximo_));
                c.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
                c.removeSelectedText();
            }
            mostrando_ = false;
        }
    }
    if (aoEditar) aoEditar();
}

BarraTituloQt::BarraTituloQt(QWidget* pai)
    : QFrame(pai), texto_(new QLabel(this)), botao_(new QToolButton(this)) {
    setAutoFillBackground(true);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, CorQt(painel::Faixa));
    pal.setColor(QPalette::WindowText, CorQt(painel::Texto));
    pal.setColor(QPalette::ButtonText, CorQt(painel::Texto));
    setPalette(pal);
    auto* arranjo = new QHBoxLayout(this);
    arranjo->setContentsMargins(6, 0, 2, 0);
    arranjo->addWidget(texto_, 1);
    arranjo->addWidget(botao_);
    botao_->setText(QStringLiteral("Menu ▾"));
    botao_->setAutoRaise(true);
    // The style's hover panel is light: white text on it would vanish.
    botao_->setStyleSheet(QStringLiteral("QToolButton { color: white; border: 1px solid transparent; padding: 1px 6px; }"
                                         "QToolButton:hover, QToolButton:pressed { background: rgba(255, 255, 255, 60);"
                                         " border-color: white; }"));
    botao_->setFocusPolicy(Qt::NoFocus);
    botao_->setToolTip(QStringLiteral("Menu da tela"));
    botao_->hide();
    connect(botao_, &QToolButton::clicked, this, [this] {
        if (aoPedirMenu) aoPedirMenu();
    });
}

void BarraTituloQt::Mostra(const BarraTitulo& b) {
    const QString t = Q(b.TextoCompleto());
    if (texto_->text() != t) texto_->setText(t);
    QFont f = FonteQt(b.Font);
    f.setBold(true);
    if (texto_->font() != f) texto_->setFont(f);
    botao_->setVisible(static_cast<bool>(b.Menu));
}

void BarraTituloQt::contextMenuEvent(QContextMenuEvent* e) {
    if (aoPedirMenu && botao_->isVisible()) {
        aoPedirMenu();
        e->accept();
    }
}

} // namespace ztolvan
