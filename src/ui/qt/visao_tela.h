#pragma once
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <Qt>
#include <cstdint>
#include <string>
#include <vector>

#include "screens/tela.h"

class QAction;
class QKeyEvent;

namespace ztolvan {

class ModeloGrade;

// The one Qt view of any screen model: a widget per control at its twips
// position, mirrored from the model after every event it forwards. It holds
// no behaviour: every key goes to the screen first (key preview), typed
// text, selections, clicks and focus go to the controls' events, and the
// close box asks the screen. When the screen unloads, the dialog closes.
class VisaoTela : public QDialog {
    Q_OBJECT
  public:
    explicit VisaoTela(Tela& t, QWidget* pai = nullptr);
    ~VisaoTela() override;

    Tela& ModeloTela() const { return tela_; }
    // The latest view of a screen still alive, or nullptr.
    static VisaoTela* De(const Tela* t);
    static std::vector<VisaoTela*> Todas();

    // Mirrors the model: controls coming and going, captions, texts, enabled
    // and visible, colours, fonts, list entries, grid contents, selection,
    // focus, menu shortcuts, caption and size.
    void Sincroniza();
    // Once shown: Form_Activate, then the focus to the screen's ActiveControl
    // or to the first control in tab order, as if entered by Tab.
    void Ativa();
    // Puts the focus on c; the screen hears it (RecebeFoco) even while the
    // window is not the active one.
    void FocaControle(Controle& c, Qt::FocusReason motivo = Qt::OtherFocusReason);
    // "{TAB}": the next control in tab order.
    void AvancaFoco();
    void DefineNoTopo(bool ligar);
    // Pops a menu tree up at (x, y) twips of the screen; runs the chosen
    // item's Click once the menu has closed.
    void MostraMenu(ItemMenu& raiz, int x, int y);

    QWidget* WidgetDe(const Controle* c) const;
    Controle* ControleDe(const QObject* o) const;
    QAction* AcaoDe(const ItemMenu* m) const;
    int Px(int twips) const;

    // Enter and Esc belong to the screen: QDialog's own handling is off.
    void reject() override {}

  protected:
    bool eventFilter(QObject* o, QEvent* e) override;
    void closeEvent(QCloseEvent* e) override;
    // The window active again (a dialog closed, the operator back from
    // another window): Form_Activate runs again, as at the first show.
    void changeEvent(QEvent* e) override;

  private:
    struct Item {
        Controle* controle = nullptr;
        TipoControle tipo = TipoControle::Rotulo;
        std::string nome;
        QWidget* widget = nullptr;
        ModeloGrade* grade = nullptr;
        // What was last mirrored, so only changes reach the widget.
        Fonte fonte;
        bool temFonte = false;
        Cor frente = 0, fundo = 0;
        bool temCores = false;
        uint64_t versaoLista = UINT64_MAX;
        std::vector<std::string> itens;
        int selInicio = 0, selTamanho = 0;
    };
    struct Acao {
        ItemMenu* item;
        QAction* acao;
    };
    // A key press already shown to the screen on its way to the widget.
    struct Previa {
        bool valida = false;
        int tecla = 0;
        Qt::KeyboardModifiers mods;
        bool consumida = false;
    };

    template <class F> void Encaminha(const char* evento, F&& f);
    void AposEvento();
    Item CriaItem(Controle& c);
    void Reconstroi();
    void SincronizaItem(Item& i);
    // The control's font on its widget, when it changed since last shown.
    static void AplicaFonte(Item& i, QWidget* w);
    void SincronizaGrade(Item& i);
    void SincronizaMenus();
    void SincronizaFoco();
    void ConfirmaFoco();
    void MarcaFoco();
    Item* ItemDe(const QObject* o);
    bool PrimeiroReceptor(const QObject* o) const;
    bool ModeloConsome(QObject* o, const QKeyEvent& k);
    bool Tecla(QObject* o, QKeyEvent& k, bool sobreposicao);

    Tela& tela_;
    std::vector<Item> itens_;
    std::vector<Acao> acoes_;
    std::vector<ItemMenu*> menus_;
    uint64_t versaoControles_ = UINT64_MAX;
    int sincronizando_ = 0;
    Previa previa_;
    QPointer<QLineEdit> selecionar_;
    bool gradeMudouNoClique_ = false;
    // Form_Activate has run since the window last lost the activation.
    bool ativada_ = false;
};

} // namespace ztolvan
