#include "screens/controles.h"

#include <cctype>

#include "common/conversao.h"
#include "common/formato.h"
#include "common/texto.h"

namespace ztolvan {

std::string AplicaMascara(std::string_view mascara, std::string_view texto) {
    if (mascara.empty()) return std::string(texto);
    std::string r;
    size_t pos = 0;
    for (char c : texto) {
        // Literals of the mask stand in their places whatever is typed.
        while (pos < mascara.size() && mascara[pos] != '9')
            r.push_back(mascara[pos++]);
        if (pos >= mascara.size()) break;
        if (std::isdigit(static_cast<unsigned char>(c)) || c == ' ') {
            r.push_back(c);
            ++pos;
        }
    }
    return r;
}

void CaixaTexto::Digita(std::string_view texto) {
    std::string novo = AplicaMascara(Mask, texto);
    if (MaxLength > 0 && static_cast<int>(Largura(novo)) > MaxLength) novo = Esquerda(novo, MaxLength);
    Text = std::move(novo);
    SelStart = static_cast<int>(Largura(Text));
    SelLength = 0;
    Dispara(Change);
}

std::string CaixaTexto::TextoExibido(bool comFoco) const {
    if (comFoco || Format.empty() || Apara(Text).empty()) return Text;
    try {
        return Formata(TextoParaNumero(Text), Format);
    } catch (...) {
        return Text; // not a number: shown as typed
    }
}

void CaixaTexto::SelecionaAparado() {
    SelStart = 0;
    SelLength = static_cast<int>(Largura(Apara(Text)));
}

void CaixaTexto::SelecionaTudo() {
    SelStart = 0;
    SelLength = static_cast<int>(Largura(Text));
}

void ListaSuspensa::AddItem(std::string texto) {
    Itens.push_back(std::move(texto));
    ItemData.push_back(0);
}

void ListaSuspensa::Clear() {
    Itens.clear();
    ItemData.clear();
    ListIndex = -1;
}

std::string ListaSuspensa::Text() const {
    return ListIndex >= 0 && ListIndex < ListCount() ? Itens[ListIndex] : std::string();
}

void ListaSuspensa::Seleciona(int indice) {
    if (indice < -1 || indice >= ListCount()) return;
    ListIndex = indice;
    Dispara(Click);
}

void Lista::AddItem(std::string texto) {
    Itens.push_back(std::move(texto));
    ItemData.push_back(0);
    ++Versao;
}

void Lista::Clear() {
    Itens.clear();
    ItemData.clear();
    ListIndex = -1;
    ++Versao;
}

std::string BarraTitulo::TextoCompleto() const {
    std::string t = Caption;
    if (Empresa != 0) t += (t.empty() ? "" : "  -  ") + std::string("Empresa ") + TextoDecimal(Empresa);
    if (!Apara(Operador).empty())
        t += (t.empty() ? "" : "  -  ") + std::string("Operador ") + Apara(Operador);
    return t;
}

} // namespace ztolvan
