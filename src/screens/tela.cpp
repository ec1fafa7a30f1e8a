#include "screens/tela.h"

#include <algorithm>

#include "screens/janelas.h"

namespace ztolvan {

Tela::Tela(std::string nome) : Name(std::move(nome)) {}
Tela::~Tela() = default;

Controle* Tela::Acha(std::string_view nome) const {
    for (Controle* c : controles_)
        if (c->Name == nome) return c;
    return nullptr;
}

void Tela::Registra(Controle& c, std::string nome, int left, int top, int width, int height, int tabIndex) {
    c.Name = std::move(nome);
    c.Left = left;
    c.Top = top;
    c.Width = width;
    c.Height = height;
    c.TabIndex = tabIndex;
    c.TabStop = tabIndex >= 0 && c.RecebeFoco();
    controles_.push_back(&c);
    ++versaoControles_;
}

Controle& Tela::Adiciona(std::unique_ptr<Controle> c) {
    Controle& r = *c;
    controles_.push_back(c.get());
    dinamicos_.push_back(std::move(c));
    ++versaoControles_;
    return r;
}

void Tela::RemovePorPrefixo(std::string_view prefixo) {
    auto casa = [&](const Controle* c) {
        return std::string_view(c->Name).substr(0, prefixo.size()) == prefixo;
    };
    bool removeu = false;
    for (auto it = dinamicos_.begin(); it != dinamicos_.end();) {
        if (casa(it->get())) {
            Controle* c = it->get();
            if (ativo_ == c) ativo_ = nullptr;
            std::erase(controles_, c);
            it = dinamicos_.erase(it);
            removeu = true;
        } else {
            ++it;
        }
    }
    if (removeu) ++versaoControles_;
}

void Tela::ZOrder(Controle& c, int posicao) {
    auto it = std::find(controles_.begin(), controles_.end(), &c);
    if (it == controles_.end()) return;
    controles_.erase(it);
    if (posicao == 0)
        controles_.push_back(&c);
    else
        controles_.insert(controles_.begin(), &c);
    ++versaoControles_;
}

std::vector<ItemMenu*> Tela::TodosOsMenus() const {
    std::vector<ItemMenu*> todos;
    std::vector<ItemMenu*> pilha(Menus.rbegin(), Menus.rend());
    while (!pilha.empty()) {
        ItemMenu* m = pilha.back();
        pilha.pop_back();
        todos.push_back(m);
        pilha.insert(pilha.end(), m->Filhos.rbegin(), m->Filhos.rend());
    }
    return todos;
}

void Tela::SetFocus(Controle& c) { JanelasAtuais().MoveFoco(*this, c); }

void Tela::RecebeFoco(Controle& c) {
    if (ativo_ == &c) return;
    Controle* antes = ativo_;
    ativo_ = &c;
    if (antes) Controle::Dispara(antes->LostFocus);
    Controle::Dispara(c.GotFocus);
}

std::vector<Controle*> Tela::OrdemTab() const {
    std::vector<Controle*> ordem;
    for (Controle* c : controles_)
        if (c->TabStop && c->TabIndex >= 0 && c->RecebeFoco()) ordem.push_back(c);
    std::stable_sort(ordem.begin(), ordem.end(), [](auto* a, auto* b) { return a->TabIndex < b->TabIndex; });
    return ordem;
}

Controle* Tela::ProximoNaOrdem(const Controle* atual) const {
    auto ordem = OrdemTab();
    std::erase_if(ordem, [&](Controle* c) { return c != atual && (!c->Visible || !c->Enabled); });
    if (ordem.empty()) return nullptr;
    auto it = std::find(ordem.begin(), ordem.end(), atual);
    if (it == ordem.end() || ++it == ordem.end()) it = ordem.begin();
    return *it == atual ? nullptr : *it;
}

int Tela::Tecla(Controle* alvo, int KeyCode, int Shift) {
    if (KeyPreview) Form_KeyDown(KeyCode, Shift);
    // Menu shortcuts work with no menu bar shown: a visible, enabled item
    // with this key runs, whatever its parents show.
    if (KeyCode != 0 && carregada_) {
        for (ItemMenu* m : TodosOsMenus()) {
            if (m->Visible && m->Enabled && m->Click && m->Shortcut == Atalho{KeyCode, Shift}) {
                KeyCode = 0;
                m->Click();
                break;
            }
        }
    }
    if (KeyCode != 0 && carregada_ && alvo && alvo->KeyDown) alvo->KeyDown(KeyCode, Shift);
    return KeyCode;
}

void Tela::Carrega() {
    if (carregada_) return;
    carregada_ = true;
    ativo_ = nullptr;
    Form_Load();
}

bool Tela::Fecha(int modo) {
    if (!carregada_) return true;
    int cancela = 0;
    Form_QueryUnload(cancela, modo);
    if (cancela) return false;
    Form_Unload(cancela);
    if (cancela) return false;
    carregada_ = false;
    ativo_ = nullptr;
    return true;
}

void Tela::Unload() { Fecha(fechamento::PeloCodigo); }

bool Tela::PedeFechamento(int modo) { return Fecha(modo); }

void MostraModal(Tela& t) {
    t.Carrega();
    if (t.Carregada()) JanelasAtuais().MostraModal(t);
}

} // namespace ztolvan
