#pragma once
#include <string>
#include <unordered_map>
// The table-access pattern, written once: a module is a list of handlers,
// each a statement with where its select columns go and where its "?"
// values come from. Both are read off the statement text against the column
// tables of the records, once, when the module is first used; a name that
// matches no column is kept in naoResolvidos (a test checks there is none).
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/contexto.h"
#include "data/modules/registro.h"

namespace ztolvan::modulos {

// A record that a module's statements reach: its column table and the
// calling thread's instance.
struct Alvo {
    const TabelaColunas& (*tabela)() = nullptr;
    void* (*instancia)() = nullptr;
};

template <class R> Alvo AlvoDe() {
    return {&R::Colunas, []() -> void* { return &Contexto::Atual().Parte<R>(); }};
}

enum class Acao : uint8_t { Seleciona, Insere, Altera };

// A column of one of the handler's targets; coluna is null when the name in
// the statement matched nothing.
struct Ref {
    uint8_t alvo = 0;
    const Coluna* coluna = nullptr;
};

struct Manipulador {
    std::string funcao;
    Acao acao = Acao::Seleciona;
    std::string texto;
    std::vector<Alvo> alvos;
    std::vector<Ref> destinos;   // select list, in order
    std::vector<Ref> parametros; // one per "?", in order
    std::vector<std::string> naoResolvidos;
};

// A select: each select-list item "Tn.Nome" goes to the column Nome of the
// target whose alias is Tn ("" for items without a prefix); every "?"
// takes the key column named just before it.
Manipulador Seleciona(std::string funcao, std::string texto,
                      std::vector<std::pair<std::string, Alvo>> apelidos, Alvo chave);
// An INSERT: the "?" take the listed columns of the record, in order.
Manipulador Insere(std::string funcao, std::string texto, Alvo registro);
// An UPDATE: the "?" before WHERE take record columns, those after it key columns.
Manipulador Altera(std::string funcao, std::string texto, Alvo registro, Alvo chave);

// "SELECT " + the record's column list with the prefix + " " + the rest.
std::string SelectDe(const TabelaColunas& t, std::string_view prefixo, std::string_view resto);
// "INSERT INTO T (" + column list + " ) VALUES (" + "?, ?, ..." + " )".
std::string InsertDe(std::string_view tabela, const TabelaColunas& t);

struct DefinicaoModulo {
    size_t indice = 0; // row of the thread's cursor tables
    std::string nome;  // "MTBPAR"
    bool maiusculas = false;
    RegistroModulo& (*registro)() = nullptr;
    const TabelaColunas& (*tabela)() = nullptr;
    std::vector<Manipulador> manipuladores;

    std::string NomeRegistro() const { return "A_" + nome; }
};

template <class R> RegistroModulo& RegistroDe() { return Contexto::Atual().Parte<R>(); }

// The module entry: COMMIT/ROLLBACK, or the handler that Funcao names.
void Executa(const DefinicaoModulo& d);

// Most handlers a module has; the cursor table of each module has this many slots.
inline constexpr size_t MaxManipuladores = 4;

inline constexpr size_t NumeroDeModulos = 18;

// The eighteen modules, in a fixed order (their cursor-table rows).
const std::vector<DefinicaoModulo>& Definicoes();

// The thread's cursor tables: one row per module, one slot per handler in
// handler order; 0 = not prepared on this connection.
struct TabelaCursores {
    std::array<std::array<int16_t, MaxManipuladores>, NumeroDeModulos> slots{};
    // Statements the screens build at run time, by their text.
    std::unordered_map<std::string, int16_t> construidos;
};

} // namespace ztolvan::modulos
