#pragma once
#include <chrono>
// The steps every generator shares: the precondition, the grouping prefix,
// the row walk, the product read's outcome, availability, item numbers, the
// insert's outcome and the per-item commit.
#include <cstdint>
#include <string>
#include <vector>

#include <unordered_map>

#include "common/explicacao.h"
#include "data/modules/registro.h"
#include "generation/geracao.h"

namespace ztolvan::geracao {

// What generation keeps for the component's lifetime on this thread.
struct Estado {
    std::string flagLeituraProduto; // the document type's FLGFC: "1" is the joined read
    std::string flagCMES;           // from FLGES and FLGCMED; empty until first set
    std::vector<int32_t> itens;     // written by the last generation
    // Each written item's explanation, when explanations are on.
    std::unordered_map<int32_t, Notas> explicacoes;
    // Progress of the running generation: marked rows reached of those marked.
    int feitos = 0, marcados = 0;
    std::chrono::steady_clock::time_point ultimoAndamento;
};
Estado& EstadoAtual();

inline constexpr const char* Titulo = "Agrupamento";
inline constexpr const char* CR = "\r";

// A row message: title "Agrupamento", exclamation icon unless told.
void Avisa(const std::string& texto, int32_t tipo = 48);

// False (after "Zero Itens Gerados") when there is no data row or the
// multiplier is below 1.
bool PreCondicao(const TelaGeracao& t);
// The first N characters of the grouping's name and a blank, when the
// setting "Descricao Agrupamento Produto" is on; else empty.
std::string PrefixoAgrupamento(const TelaGeracao& t);
// Selects the row and its column 0, as the operator would see it: marked?
bool Marcada(Grade& g, int linha);
// One more marked row reached: tells the screen, at most every 100 ms.
void Avanca(TelaGeracao& t);
// Starts counting a run over 'marcados' marked rows.
void ComecaAndamento(int marcados);

// The cells a generator reads, converted as the system reads them.
struct LinhaGrade {
    std::string descricao;   // column 1
    double qtd = 0;          // column 4, times the multiplier
    std::string equivalente; // column 8
    std::string produto;     // column 9
};
LinhaGrade LeLinha(const Grade& g, int linha);
double NumeroDaCelula(const Grade& g, int linha, int coluna);

// The product read's status: true on "00"; a message otherwise.
bool ProdutoLido(const LinhaGrade& l);
// The equivalence's DISPON is blank, "0" or "5"; a message otherwise.
bool Disponivel(const LinhaGrade& l);

// The next item number: the last one plus the step (overflow is error 6).
int32_t ProximoItem(int32_t& ultimo, int32_t passo);

// Empties a module record (its fields back to 0 and blanks) keeping its
// function code and command word: nothing of another row or document
// survives into this one.
template <class R> void Limpa(R& r) {
    RegistroModulo m = r;
    r = R{};
    static_cast<RegistroModulo&>(r) = std::move(m);
}

// After the item's insert: true on "00"; the described message otherwise,
// and the refused unit is rolled back so nothing stays pending.
bool Inserido(const LinhaGrade& l);
// "Erro no Commit.." with Comunica's command word, message and status.
void MostraErroCommit();
// COMMIT through the module whose record is given; on failure the commit
// error is shown, the unit rolled back and false returned. On success the
// item counts as written: the return status becomes 0.
bool Confirma(RegistroModulo& registro, void (*modulo)(), int32_t item);
// ROLLBACK through the grouping module, whatever is pending.
void Desfaz();
// The end of a generation: pending events, then the screen closes.
void Conclui(TelaGeracao& t);

} // namespace ztolvan::geracao
