#include "screens/relato.h"

#include "common/log.h"
#include "common/mensagens.h"
#include "entry/sessao.h"

namespace ztolvan {

void RelataErro(EstiloErro estilo, const std::string& procedimento, const std::string& formulario, int linha,
                long numero, const std::string& descricao) {
    const Sessao& s = SessaoAtual();
    switch (estilo) {
    case EstiloErro::Previsto:
        MostraMensagem("Atenção! erro não previsto na função - " + procedimento, msg::Critico, "Aviso",
                       "Erro na linha : " + std::to_string(linha) + " - " + descricao + " na função " +
                           procedimento + " no Formulário " + formulario,
                       s.Operador, "");
        break;
    case EstiloErro::Log:
        sbGeraLog(0, NomeAplicacao, s.Versao, procedimento,
                  std::to_string(numero) + ", " + descricao + " Linha: " + std::to_string(linha), s.Operador,
                  true, 1, "");
        break;
    case EstiloErro::Critico:
        MostraMensagem("Ocorreu um Erro Crítico - " + descricao, msg::Critico, procedimento + NomeAplicacao);
        break;
    }
}

} // namespace ztolvan
