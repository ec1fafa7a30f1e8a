// Generation as the consultation screen's generate command.
#include "generation/geracao.h"
#include "screens/consultation/tolvanf01.h"

namespace ztolvan {

void sbGerarDocumento(TolvanF01& f) {
    TelaGeracao t{f.GCon1, f.MSFGAgrupamento, f.LNome.Caption, [&f] { f.sbSair(); }};
    sbGerarDocumento(t);
}

void InstalaGeracao() {
    AcoesConsulta acoes = AcoesConsultaAtuais();
    acoes.GerarDocumento = [](TolvanF01& f) { sbGerarDocumento(f); };
    DefineAcoesConsulta(std::move(acoes));
}

} // namespace ztolvan
