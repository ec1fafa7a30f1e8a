#include "entry/empresa.h"

#include "common/conversao.h"
#include "common/mensagens.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/modules/modulos.h"
#include "entry/sessao.h"
#include "entry/settings/configuracao.h"

namespace ztolvan {

void LerEmpresa() {
    A_MTBPAR_t& par = A_MTBPAR();
    par.PerCusFixo = 0;
    par.PerPis = 0;
    par.PerCofins = 0;
    par.PerCPMF = 0;
    par.PerIRPJ = 0;
    par.PerCSSL = 0;
    ChaveMTBPAR().Empresa = SessaoAtual().Empresa;
    par.Funcao = "FSEL001";
    par.Transacao = "REQUERY";
    MTBPAR();
    const std::string& st = ComunicaAtual().Status;
    if (st != status::Ok && st != status::SemLinha)
        MostraMensagem("Erro não previsto - LerEmpresa = " + st, msg::OK);
}

void DefineTipoPreco() {
    Sessao& s = SessaoAtual();
    LerAjuste(Ajuste::PrecoAgrupamento);
    if (Normaliza(s.Origem) == "C" && Val(s.TipoPrecoCompra) != 0)
        s.TipoPreco = CStr(Valor(Val(s.TipoPrecoCompra)));
    if (Val(s.TipoPreco) == 0) s.TipoPreco = TextoDecimal(s.PrecoVenda);
}

} // namespace ztolvan
