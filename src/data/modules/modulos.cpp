#include "data/modules/modulos.h"

#include "common/contexto.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/modules/modulo.h"

namespace ztolvan {
namespace {

enum Indice : size_t {
#define ZT_INDICE_(M) i##M,
    ZT_MODULOS(ZT_INDICE_)
#undef ZT_INDICE_
};

template <class T> T& DaThread() { return Contexto::Atual().Parte<T>(); }

const modulos::DefinicaoModulo* Acha(std::string_view nome) {
    for (const auto& d : modulos::Definicoes())
        if (d.nome == nome) return &d;
    return nullptr;
}

} // namespace

#define ZT_DEFINE_MODULO_(M)                                                                                 \
    void M() { modulos::Executa(modulos::Definicoes()[i##M]); }                                              \
    A_##M##_t& A_##M() { return DaThread<A_##M##_t>(); }
ZT_MODULOS(ZT_DEFINE_MODULO_)
#undef ZT_DEFINE_MODULO_

#define ZT_DEFINE_CHAVE_(M)                                                                                  \
    Chave##M##_t& Chave##M() { return DaThread<Chave##M##_t>(); }
ZT_DEFINE_CHAVE_(MTBPAR)
ZT_DEFINE_CHAVE_(MTBPNF)
ZT_DEFINE_CHAVE_(MTBDOC)
ZT_DEFINE_CHAVE_(MTBICM)
ZT_DEFINE_CHAVE_(MTBVEN)
ZT_DEFINE_CHAVE_(MTBREP)
ZT_DEFINE_CHAVE_(MTBDOCIT)
ZT_DEFINE_CHAVE_(MTBMAT)
ZT_DEFINE_CHAVE_(MTBPEV)
ZT_DEFINE_CHAVE_(MTBPEVIT)
ZT_DEFINE_CHAVE_(MTBICMUF)
ZT_DEFINE_CHAVE_(MTBPEC)
ZT_DEFINE_CHAVE_(MTBPECIT)
ZT_DEFINE_CHAVE_(MTBCUS)
ZT_DEFINE_CHAVE_(MTBFOR)
ZT_DEFINE_CHAVE_(MTBMATEQ)
ZT_DEFINE_CHAVE_(MTBMATAG)
ZT_DEFINE_CHAVE_(EquivMTBMAT)
#undef ZT_DEFINE_CHAVE_

void ZeraCursoresModulos() { DaThread<modulos::TabelaCursores>() = {}; }

int16_t CursorDoComando(const std::string& texto) {
    auto& guardados = DaThread<modulos::TabelaCursores>().construidos;
    Comunica& c = ComunicaAtual();
    if (auto it = guardados.find(texto); it != guardados.end()) {
        c.Cursor = it->second;
        c.Status = status::Ok;
        return it->second;
    }
    PreparaComando(texto);
    if (c.Status != status::Ok) return 0;
    guardados.emplace(texto, c.Cursor);
    return c.Cursor;
}

std::string TextoDoComando(std::string_view modulo, std::string_view funcao) {
    if (const auto* d = Acha(modulo))
        for (const auto& m : d->manipuladores)
            if (m.funcao == funcao) return m.texto;
    return {};
}

std::span<const int16_t> CursoresDoModulo(std::string_view modulo) {
    const auto* d = Acha(modulo);
    if (!d) return {};
    const auto& linha = DaThread<modulos::TabelaCursores>().slots[d->indice];
    return {linha.data(), d->manipuladores.size()};
}

std::vector<std::string> ColunasNaoResolvidas() {
    std::vector<std::string> r;
    for (const auto& d : modulos::Definicoes())
        for (const auto& m : d.manipuladores)
            for (const auto& n : m.naoResolvidos)
                r.push_back(d.nome + " " + n);
    return r;
}

} // namespace ztolvan
