#pragma once
#include <QFrame>
#include <QPlainTextEdit>
#include <QWidget>
#include <functional>
#include <string>
#include <string_view>

#include "screens/controles.h"

class QLabel;
class QToolButton;

namespace ztolvan {

// A shape: drawn on the screen's surface, never takes the mouse. A border
// thicker than the shape (the strip's 5-twip separators) fills it.
class FormaQt : public QWidget {
  public:
    explicit FormaQt(QWidget* pai);
    void Mostra(const Forma& f);

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    QColor fundo_, preenchimento_, borda_;
    bool opaca_ = false, preenchida_ = false;
    int larguraBorda_ = 1;
};

// A frame as the old window system drew it: an etched rectangle whose top
// line runs through the middle of the caption, so the controls the screen
// places just under the caption stay clear of the line.
class MolduraQt : public QWidget {
  public:
    explicit MolduraQt(QWidget* pai);
    void Mostra(const Moldura& m);
    const QString& Titulo() const { return titulo_; }

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    QString titulo_;
};

// A text field of several lines. The model keeps the old text box's "\r\n"
// breaks and counts a break as two; the widget holds plain "\n". Positions
// and the length limit are given and taken in the model's terms.
class CaixaMultiLinhaQt : public QPlainTextEdit {
  public:
    explicit CaixaMultiLinhaQt(QWidget* pai);
    // Shows the text unless it is already there (the caret stays put);
    // 'maximo' 0 is no limit.
    void Mostra(std::string_view texto, int maximo, bool travada);
    std::string Texto() const;
    int Cursor() const;
    void Seleciona(int inicio, int tamanho);
    // The operator changed the text, already cut to the limit.
    std::function<void()> aoEditar;

  protected:
    bool event(QEvent* e) override;
    void focusInEvent(QFocusEvent* e) override;
    void focusOutEvent(QFocusEvent* e) override;

  private:
    void Editado();
    int PosicaoTela(int posicaoModelo) const;

    int maximo_ = 0;
    bool mostrando_ = false;
};

// The suite's title bar: the caption with company and operator, and, when
// the screen has a menu, a button (and the right mouse button) raising it.
class BarraTituloQt : public QFrame {
  public:
    explicit BarraTituloQt(QWidget* pai);
    void Mostra(const BarraTitulo& b);
    std::function<void()> aoPedirMenu;
    QToolButton* BotaoMenu() const { return botao_; }

  protected:
    void contextMenuEvent(QContextMenuEvent* e) override;

  private:
    QLabel* texto_;
    QToolButton* botao_;
};

} // namespace ztolvan
