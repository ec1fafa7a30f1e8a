#include "ui/qt/janelas_qt.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPointer>
#include <cmath>

#include "screens/tela.h"
#include "screens/twips.h"
#include "ui/qt/comum_qt.h"
#include "ui/qt/visao_tela.h"

namespace ztolvan {

std::unique_ptr<VisaoTela> JanelasQt::Abre(Tela& t) {
    auto v = std::make_unique<VisaoTela>(t, JanelaDeCima());
    v->setWindowModality(Qt::ApplicationModal);
    v->show();
    v->Ativa();
    return v;
}

void JanelasQt::MostraModal(Tela& t) {
    if (!NaThreadDaTela()) {
        // No window can be shown from here: the session ends the screen.
        t.PedeFechamento(fechamento::PeloSistema);
        return;
    }
    QPointer<QWidget> debaixo = JanelaDeCima();
    std::unique_ptr<VisaoTela> v = Abre(t);
    if (auto p = noTopoPendente_.find(&t); p != noTopoPendente_.end()) {
        v->DefineNoTopo(p->second);
        noTopoPendente_.erase(p);
    }
    if (t.Carregada() && v->isVisible()) v->exec();
    v.reset();
    DevolveTeclado(debaixo);
    // The dialog went away under the screen (the application is ending).
    if (t.Carregada()) t.PedeFechamento(fechamento::PeloSistema);
}

void JanelasQt::MoveFoco(Tela& t, Controle& c) {
    if (VisaoTela* v = VisaoTela::De(&t))
        v->FocaControle(c);
    else
        t.RecebeFoco(c); // no window yet: the focus waits in the model for the show
}

void JanelasQt::EnviaTab(Tela& t) {
    VisaoTela* v = VisaoTela::De(&t);
    if (!v) {
        if (Controle* c = t.ProximoNaOrdem(t.ActiveControl())) t.RecebeFoco(*c);
        return;
    }
    v->AvancaFoco();
    // Paint only: input waits until the handler that sent the Tab is done.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

int JanelasQt::LarguraTexto(const Fonte& f, std::string_view texto) {
    const double px = QFontMetricsF(FonteQt(f)).horizontalAdvance(Q(texto));
    return PixelsParaTwips(static_cast<int>(std::ceil(px)), DpiLogico());
}

int JanelasQt::AlturaTexto(const Fonte& f) {
    const double px = QFontMetricsF(FonteQt(f)).height();
    return PixelsParaTwips(static_cast<int>(std::ceil(px)), DpiLogico());
}

void JanelasQt::MostraMenu(Tela& t, ItemMenu& raiz, int x, int y) {
    if (VisaoTela* v = VisaoTela::De(&t)) v->MostraMenu(raiz, x, y);
}

bool JanelasQt::DefineNoTopo(TelaId tela, bool Ligar) {
    if (!tela) return false;
    for (VisaoTela* v : VisaoTela::Todas())
        if (static_cast<TelaId>(&v->ModeloTela()) == tela) {
            v->DefineNoTopo(Ligar);
            return true;
        }
    noTopoPendente_[tela] = Ligar;
    return true;
}

void JanelasQt::ProcessaEventos() {
    // A long load shows how far it got.
    SincronizaTelas();
    QCoreApplication::processEvents();
}

void JanelasQt::Bipe() { QApplication::beep(); }

} // namespace ztolvan
