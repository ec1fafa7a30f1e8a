#include "precos/trapa.h"

#include "common/mensagens.h"
#include "entry/sessao.h"

namespace ztolvan {

void RelataErroGeracao(const std::string& procedimento, const std::string& formulario, int linha,
                       const std::string& descricao) {
    MostraMensagem("Atenção! erro não previsto na função - " + procedimento, msg::Critico, "Aviso",
                   "Erro na linha : " + std::to_string(linha) + " - " + descricao + " na função " +
                       procedimento + " no Formulário " + formulario,
                   SessaoAtual().Operador, "");
}

} // namespace ztolvan
