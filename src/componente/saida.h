#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "common/mensagens.h"
#include "common/valor.h"
#include "entry/sessao.h"
#include "estoque/disponibilidade.h"
#include "generation/linhas_geradas.h"

namespace ztolvan {

// What ZProcessa handed back, for printing.
struct Resultado {
    int32_t ZCodigo = 0;
    int16_t Zstatusret = 0;
    int16_t zstatus = 0;
    std::string zstatusmens;
    Valor ZDadosVendas;
    const Sessao* sessao = nullptr; // printed too when set
    // A generation's messages in the order shown and the items it wrote.
    const std::vector<MensagemMostrada>* mensagens = nullptr;
    const std::vector<int32_t>* itens = nullptr;
    // The lines as written (or, in a preview, as they would be) and whether
    // this was a preview whose changes were undone.
    const std::vector<LinhaGerada>* linhas = nullptr;
    bool simulacao = false;
};

std::string ComoTexto(const Resultado& r);
std::string ComoJson(const Resultado& r);
// {"erro": texto}: a request that could not run.
std::string ErroComoJson(const std::string& texto);

// The stock count of a grouping: a line per item (need, free stock, the
// groupings it alone allows, "*" on a limiting one), then the total.
std::string ComoTexto(const estoque::Disponibilidade& d);
std::string ComoJson(const estoque::Disponibilidade& d);

} // namespace ztolvan
