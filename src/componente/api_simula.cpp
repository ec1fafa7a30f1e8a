// The C entry point of a generation preview.
#include <string>

#include "componente/gerar.h"
#include "entry/zt_consultalista.h"

using ztolvan::c::Copia;

extern "C" {

int zt_simula(zt_consultalista* c, int16_t zEmpresa, const char* zoperador, const char* Zorigem, int32_t Znumdoc,
              int16_t Ztpmov, const zt_valor* dados, size_t n_dados, const char* agrupamento, const char* itens,
              int multiplicador, int responde_sim, char* saida, size_t saida_tam, size_t* saida_len) {
    if (!c || !zoperador || !Zorigem || !agrupamento) return -1;
    try {
        ztolvan::PedidoGeracao p;
        p.empresa = zEmpresa;
        p.operador = zoperador;
        p.origem = Zorigem;
        p.numdoc = Znumdoc;
        p.tpmov = Ztpmov;
        p.dados = ztolvan::c::Vetor(dados, n_dados);
        p.agrupamento = agrupamento;
        p.itens = itens ? itens : "";
        p.multiplicador = multiplicador;
        p.simular = true;
        p.explicar = true;
        const auto mensagens = std::make_shared<ztolvan::MensagensRespondidas>(responde_sim != 0);
        const ztolvan::RespostaGeracao r = ztolvan::GeraSemTela(c->instancia, p, mensagens);
        const std::string texto = ztolvan::RespostaComoJson(r);
        Copia(texto, saida, saida_tam);
        if (saida_len) *saida_len = texto.size();
        return 0;
    } catch (...) {
        return -1;
    }
}

} // extern "C"
