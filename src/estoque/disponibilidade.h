#pragma once
// How many whole groupings the free stock supplies now, and which items
// hold it back. Free stock is a product's QtdItAtu − QtdItBloq; an item
// needs its quantity per grouping, in the unit generation writes and
// blocks (the grid's quantity column: QtdMat = multiplier × quantity).
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ztolvan::estoque {

// One grouping item as the count sees it; the texts are read during the
// count only (the grid's cells, as they stand).
struct Necessidade {
    std::string_view produto; // TBMAT CodItem; blank: no registered product
    std::string_view descricao;
    double quantidade = 0;  // per grouping
};

struct Saldo {
    double atual = 0, bloqueado = 0;
    double Livre() const { return atual - bloqueado; }
};
using SaldoDosProdutos = std::unordered_map<std::string, Saldo>;

struct ItemDisponivel {
    std::string produto, descricao;
    double necessidade = 0;
    std::optional<double> livre; // none: the product is not registered
    // Whole groupings this item alone allows; none when it takes nothing
    // from the stock (a quantity of 0 or less). 0 for an unregistered one.
    std::optional<int64_t> permite;
    bool limitante = false;
    bool Cadastrado() const { return livre.has_value(); }
};

struct Disponibilidade {
    // Whole groupings the stock supplies; none when no registered item takes
    // anything from the stock.
    std::optional<int64_t> agrupamentos;
    std::vector<ItemDisponivel> itens;
};

// The free stock of every product of the grouping, in one statement; none
// (with the database's message) when it failed.
std::optional<SaldoDosProdutos> LeSaldos(int16_t empresa, const std::string& agrupamento, std::string& erro);
// Starts that statement on a server while the caller does other work; the
// next LeSaldos of the same grouping takes its rows.
void AntecipaSaldos(int16_t empresa, const std::string& agrupamento);

// The count over the items: the smallest whole quotient of free stock by
// need among registered items that need stock; items whose product is not
// registered allow 0 and are named, but do not enter the count.
Disponibilidade Calcula(const std::vector<Necessidade>& itens, const SaldoDosProdutos& saldos);

// The line beside the item grid, e.g. "Estoque atende 7 agrupamentos
// completos; limitado por Café torrado 500g".
std::string TextoDisponibilidade(const Disponibilidade& d);

} // namespace ztolvan::estoque
