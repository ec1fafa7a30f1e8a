#include "generation/cotacao/impressora.h"

#include <mutex>

#include "common/conversao.h"
#include "common/texto.h"

namespace ztolvan {
namespace {

std::mutex trava;

// Built on first use, as every process-wide factory installed at load time.
std::function<std::shared_ptr<PortaImpressora>()>& FabricaImpressora() {
    static std::function<std::shared_ptr<PortaImpressora>()> f;
    return f;
}

std::string Numero(double v) { return EscreveNumero(v); }

} // namespace

void DefineFabricaImpressora(std::function<std::shared_ptr<PortaImpressora>()> fabrica) {
    std::lock_guard g(trava);
    FabricaImpressora() = std::move(fabrica);
}

std::shared_ptr<PortaImpressora> NovaImpressora() {
    std::function<std::shared_ptr<PortaImpressora>()> f;
    {
        std::lock_guard g(trava);
        f = FabricaImpressora();
    }
    return f ? f() : nullptr;
}

std::string LinhaImpressa::Texto() const {
    std::string s;
    size_t largura = 0;
    for (const TrechoImpresso& t : trechos) {
        if (t.coluna > 0 && largura < static_cast<size_t>(t.coluna - 1)) {
            s.append(t.coluna - 1 - largura, ' ');
            largura = t.coluna - 1;
        }
        s += t.texto;
        largura += Largura(t.texto);
    }
    return s;
}

bool ImpressoraGravada::Registra(std::string chamada) {
    chamadas.push_back(std::move(chamada));
    return falhaNaChamada != static_cast<int>(chamadas.size());
}

bool ImpressoraGravada::Inicia(const std::string& documento) {
    paginas.assign(1, {});
    return Registra("Inicia " + documento);
}

bool ImpressoraGravada::DefineFonte(const std::string& nome) {
    const bool tem = !ausentes.contains(nome);
    Registra("Fonte " + nome + (tem ? "" : " (recusada)"));
    if (tem) estilo_.fonte = nome;
    return tem;
}

bool ImpressoraGravada::DefineTamanho(double pontos) {
    estilo_.tamanho = pontos;
    return Registra("Tamanho " + Numero(pontos));
}

bool ImpressoraGravada::DefineNegrito(bool ligado) {
    estilo_.negrito = ligado;
    return Registra(ligado ? "Negrito" : "Normal");
}

bool ImpressoraGravada::DefineSublinhado(bool ligado) {
    estilo_.sublinhado = ligado;
    return Registra(ligado ? "Sublinhado" : "SemSublinhado");
}

bool ImpressoraGravada::Escreve(int coluna, std::string_view texto) {
    const size_t largura = Largura(aberta_.Texto());
    if (coluna > 0 && largura > static_cast<size_t>(coluna - 1)) ++sobreposicoes;
    TrechoImpresso t = estilo_;
    t.coluna = coluna;
    t.texto = std::string(texto);
    aberta_.trechos.push_back(std::move(t));
    temAberta_ = true;
    return Registra("Escreve " + std::to_string(coluna) + " " + std::string(texto));
}

void ImpressoraGravada::FechaLinha() {
    if (paginas.empty()) paginas.emplace_back();
    paginas.back().push_back(std::move(aberta_));
    aberta_ = {};
    temAberta_ = false;
}

bool ImpressoraGravada::NovaLinha() {
    FechaLinha();
    return Registra("NovaLinha");
}

bool ImpressoraGravada::NovaPagina() {
    if (temAberta_) FechaLinha();
    paginas.emplace_back();
    return Registra("NovaPagina");
}

bool ImpressoraGravada::Encerra() {
    if (temAberta_) FechaLinha();
    encerrada = true;
    return Registra("Encerra");
}

void ImpressoraGravada::Cancela() {
    cancelada = true;
    Registra("Cancela");
}

} // namespace ztolvan
