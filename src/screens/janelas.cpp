#include "screens/janelas.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "common/contexto.h"
#include "common/portas.h"
#include "common/texto.h"
#include "screens/tela.h"

namespace ztolvan {
namespace {
struct JanelasDaThread {
    std::shared_ptr<JanelasModelo> modelo;
};
} // namespace

PortaJanelas& JanelasAtuais() {
    if (auto* j = dynamic_cast<PortaJanelas*>(PortasAtuais().telas.get())) return *j;
    auto& e = Contexto::Atual().Parte<JanelasDaThread>();
    if (!e.modelo) e.modelo = std::make_shared<JanelasModelo>();
    return *e.modelo;
}

void JanelasModelo::MostraModal(Tela& t) {
    chamadas.push_back({"Modal", t.Name, "", false});
    t.Form_Activate();
    // The focus goes where the screen put it, else to the first control in tab order.
    if (t.Carregada() && !t.ActiveControl())
        if (Controle* primeiro = t.ProximoNaOrdem(nullptr)) t.RecebeFoco(*primeiro);
    auto it = roteiro_.find(t.Name);
    if (it != roteiro_.end() && !it->second.empty()) {
        auto acao = std::move(it->second.front());
        it->second.pop_front();
        if (t.Carregada()) acao(t);
    }
    // Nobody is left to use the screen: close it as Esc would.
    if (t.Carregada()) {
        t.Tecla(t.ActiveControl(), 27, 0);
        if (t.Carregada()) t.Unload();
    }
}

void JanelasModelo::MoveFoco(Tela& t, Controle& c) {
    chamadas.push_back({"Foco", t.Name, c.Name, false});
    t.RecebeFoco(c);
}

void JanelasModelo::EnviaTab(Tela& t) {
    chamadas.push_back({"Tab", t.Name, t.ActiveControl() ? t.ActiveControl()->Name : "", false});
    if (Controle* proximo = t.ProximoNaOrdem(t.ActiveControl())) t.RecebeFoco(*proximo);
}

int JanelasModelo::LarguraTexto(const Fonte& f, std::string_view texto) {
    return static_cast<int>(std::lround(static_cast<double>(Largura(texto)) * f.Tamanho * 12));
}

int JanelasModelo::AlturaTexto(const Fonte& f) { return static_cast<int>(std::lround(f.Tamanho * 24)); }

void JanelasModelo::MostraMenu(Tela& t, ItemMenu& raiz, int, int) {
    chamadas.push_back({"Menu", t.Name, raiz.Name, false});
}

bool JanelasModelo::DefineNoTopo(TelaId tela, bool Ligar) {
    const auto* t = static_cast<const Tela*>(tela);
    chamadas.push_back({"NoTopo", t ? t->Name : "", "", Ligar});
    return aceitaNoTopo;
}

void JanelasModelo::AoMostrar(const std::string& tela, std::function<void(Tela&)> acao) {
    roteiro_[tela].push_back(std::move(acao));
}

size_t JanelasModelo::Conta(std::string_view operacao) const {
    return static_cast<size_t>(
        std::count_if(chamadas.begin(), chamadas.end(), [&](auto& c) { return c.Operacao == operacao; }));
}

} // namespace ztolvan
