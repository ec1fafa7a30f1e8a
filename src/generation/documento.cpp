// Store document (origin "D"): the marked rows become TBDOCIT items of the
// host's open document, priced by the document type, taxed, with margin and
// IPI, and their quantities blocked in stock when the type says so.
#include <optional>

#include "common/conversao.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/modules/modulos.h"
#include "entry/sessao.h"
#include "entry/settings/configuracao.h"
#include "generation/comum.h"
#include "generation/geracao.h"
#include "precos/precos.h"
#include "precos/trapa.h"

namespace ztolvan {

using namespace geracao;

namespace {

constexpr int32_t Passo = 100;

// The FlCMES flag of a stock-movement pair; empty for a pair it does not know.
std::string FlagCMES(const std::string& flges, const std::string& flgcmed) {
    if (flges == "1" && flgcmed == "0") return "2";
    if (flges == "2" && flgcmed == "0") return "3";
    if (flges == "1" && flgcmed == "1") return "0";
    if (flges == "2" && flgcmed == "1") return "1";
    return {};
}

// The product of the row, by the read the document type asks for.
void LeProduto(const LinhaGrade& l) {
    const Sessao& s = SessaoAtual();
    const int16_t tipo = CInt(Val(s.TipoPreco));
    if (EstadoAtual().flagLeituraProduto != "1") {
        ChaveMTBMATEQ().Empresa = s.Empresa;
        ChaveMTBMATEQ().CodEquiv = l.equivalente;
        ChaveMTBMATEQ().Tipo = tipo;
        A_MTBMATEQ().Funcao = "FSEL011";
        A_MTBMATEQ().Transacao = "REQUERY";
        MTBMATEQ();
    } else {
        ChaveEquivMTBMAT().EMPRESA = s.Empresa;
        ChaveEquivMTBMAT().CODEQUIV = l.equivalente;
        ChaveEquivMTBMAT().TIPO = tipo;
        A_MTBMAT().Funcao = "FSEL063";
        A_MTBMAT().Transacao = "REQUERY";
        MTBMAT();
    }
}

// The stock record of the row's product, so that price, cost, commission and
// cost centre are this product's whichever read found it.
void LeEstoque(const LinhaGrade& l) {
    A_MTBMAT_t& mat = A_MTBMAT();
    ChaveMTBMAT().Empresa = SessaoAtual().Empresa;
    ChaveMTBMAT().CodItem = l.produto;
    mat.Funcao = "FSEL001";
    mat.Transacao = "REQUERY";
    MTBMAT();
    if (ComunicaAtual().Status != status::Ok) Limpa(mat);
}

double Comissao(void (*modulo)(), double& percentual) {
    modulo();
    return ComunicaAtual().Status == status::Ok ? percentual : 0;
}

} // namespace

void ConfDocumento() {
    Trapa("ConfDocumento", "TolvanF01", [&](int& linha) {
        linha = 10;
        const Sessao& s = SessaoAtual();
        A_MTBPNF_t& tp = A_MTBPNF();
        ChaveMTBPNF().EMPRESA = s.Empresa;
        ChaveMTBPNF().CODIGO = s.TpMov;
        tp.Funcao = "FSEL001";
        tp.Transacao = "REQUERY";
        MTBPNF();
        linha = 20;
        if (ComunicaAtual().Status != status::Ok) return;
        Estado& e = EstadoAtual();
        e.flagLeituraProduto = tp.FLGFC.str();
        const std::string flag = FlagCMES(tp.FLGES.str(), tp.FLGCMED.str());
        if (!flag.empty()) e.flagCMES = flag;
    });
}

void GeraDocumento(TelaGeracao& t) {
    const bool ok = Trapa("GeraDocumento", "TolvanF01", [&](int& linha) {
        linha = 10;
        if (!PreCondicao(t)) return;
        Sessao& s = SessaoAtual();
        LerAjuste(Ajuste::CobraICMSSubstituto);

        linha = 20;
        A_MTBDOC_t& cab = A_MTBDOC();
        Limpa(cab);
        ChaveMTBDOC().Empresa = s.Empresa;
        ChaveMTBDOC().Seq = s.NumDoc;
        cab.Funcao = "FSEL001";
        cab.Transacao = "REQUERY";
        MTBDOC();
        A_MTBDOCIT_t& it = A_MTBDOCIT();
        Limpa(it);
        ChaveMTBDOCIT().Empresa = s.Empresa;
        ChaveMTBDOCIT().Seq = s.NumDoc;
        it.Funcao = "FSEL024";
        it.Transacao = "OPEN";
        MTBDOCIT();
        int32_t ultimo = it.Item;
        it.Transacao = "CLOSE";
        MTBDOCIT();

        const A_MTBPNF_t& tp = A_MTBPNF();
        const A_MTBPAR_t& par = A_MTBPAR();
        const bool tipo1 = Val(tp.FLGES.str()) == 1;
        // A first character of CTAIR that is not a digit does not read as 1.
        const bool usaPrecoItem4 = Val(Esquerda(tp.CTAIR.str(), 1)) == 1;
        const std::string prefixo = PrefixoAgrupamento(t);
        // The document's seller and representative: their rates are read once.
        std::optional<double> comissVnd, comissRep;
        const int n = t.GCon1.Rows() - 1;
        for (int r = 1; r <= n; ++r) {
            linha = 30;
            if (!Marcada(t.GCon1, r)) continue;
            Avanca(t);
            const LinhaGrade l = LeLinha(t.GCon1, r);
            LeProduto(l);
            if (!ProdutoLido(l) || !Disponivel(l)) continue;
            LeEstoque(l);
            const A_MTBMATEQ_t& eq = A_MTBMATEQ();
            const A_MTBMAT_t& mat = A_MTBMAT();

            linha = 40;
            Limpa(it);
            it.Empresa = s.Empresa;
            it.Seq = s.NumDoc;
            it.NumNF = cab.NumNF;
            it.SerieNF = cab.SerieNF;
            it.CodMat = l.equivalente;
            it.CodMat2 = l.produto;
            it.DscMat = prefixo + l.descricao;
            it.UndMat = eq.UndItem;
            it.QtdUnd = eq.QtdUnd == 0 ? 1 : eq.QtdUnd;
            it.QtdMat = l.qtd;
            it.FlCMES = EstadoAtual().flagCMES;
            it.Status = "0";
            it.TpMov = s.TpMov;
            it.GrpMat = eq.GrpItem;
            it.NatOper = cab.NatOper;
            it.CodSitTrib = "00";
            it.CCusto = mat.CCusto;
            it.PrecoVenda = s.PrecoVenda;
            if (tipo1) {
                const bool item4 = usaPrecoItem4 && mat.PrcItem4 > 0;
                it.ValUnit = item4 ? mat.PrcItem4 : mat.UltCValor;
                if (explicacao::Ligada())
                    explicacao::Anota("preco", item4 ? "custo do estoque (PrcItem4)" : "última compra (UltCValor)");
            } else {
                // A trapped price error is reported there; the row goes on with 0.
                it.ValUnit = PrecoPromocional("TolvanF01");
                it.ClFisIPI = eq.ClasFiscal;
                it.PercIPI = eq.IPI;
                if (mat.PerComis > 0) {
                    it.ComissVnd = it.ComissRep = mat.PerComis;
                } else {
                    it.ComissVnd = 0;
                    it.ComissRep = 0;
                    if (cab.Vendedor != 0) {
                        if (!comissVnd) {
                            ChaveMTBVEN().EMPRESA = s.Empresa;
                            ChaveMTBVEN().CODVEND = cab.Vendedor;
                            A_MTBVEN().Funcao = "FSEL001";
                            A_MTBVEN().Transacao = "REQUERY";
                            comissVnd = Comissao(&MTBVEN, A_MTBVEN().PERCOMIS);
                        }
                        it.ComissVnd = *comissVnd;
                    }
                    if (cab.CodRep != 0) {
                        if (!comissRep) {
                            ChaveMTBREP().EMPRESA = s.Empresa;
                            ChaveMTBREP().CODREPCOM = cab.CodRep;
                            A_MTBREP().Funcao = "FSEL017";
                            A_MTBREP().Transacao = "REQUERY";
                            comissRep = Comissao(&MTBREP, A_MTBREP().PERCOMIS);
                        }
                        it.ComissRep = *comissRep;
                    }
                }
            }

            linha = 50;
            // A trapped error there is reported and leaves the taxes as the
            // emptied record holds them; the row is still written.
            Calcula_Tributos(eq.SitTrib.str(), s.DadosVenda2 != 0, s.DadosVenda3, s.DadosVenda4, s.DadosVenda5,
                             s.DadosVenda6, s.DadosVenda1, eq.PercIsen, eq.CodICMSS, s.NatOper);

            linha = 60;
            it.ValTotal = SemEstouro(it.QtdMat * it.ValUnit);
            it.ValItem = it.ValUnit;
            if (!tipo1) {
                it.CustoGer = mat.PrcItem4;
                it.MargemLiq =
                    CalculaMargemLiquida(it.ValUnit, it.QtdUnd, it.PercICMS, mat.PrcItem4, par.PerCofins,
                                         par.PerPis, par.PerCusFixo, par.PerCPMF, par.PerIRPJ, par.PerCSSL);
            }
            if (it.PercIPI != 0) {
                it.BaseIPI = SemEstouro(it.QtdUnd * it.QtdMat * it.ValUnit);
                it.ValIPI = SemEstouro(it.PercIPI / 100 * it.BaseIPI);
            }
            it.Item = ProximoItem(ultimo, Passo);

            linha = 70;
            it.Funcao = "FINS001";
            it.Transacao = "EXECUTE";
            MTBDOCIT();
            if (!Inserido(l)) continue;
            if (Confirma(it, &MTBDOCIT, it.Item)) BloqMaterial();
        }
        Conclui(t);
    });
    if (!ok) Desfaz();
}

void BloqMaterial() {
    const bool ok = Trapa("BloqMaterial", "TolvanF01", [&](int& linha) {
        linha = 10;
        const std::string& flag = EstadoAtual().flagCMES;
        if ((flag != "3" && flag != "1") || Normaliza(SessaoAtual().BloqueiaItens) == "NAO") return;
        linha = 20;
        const A_MTBDOCIT_t& it = A_MTBDOCIT();
        A_MTBMAT_t& mat = A_MTBMAT();
        ChaveMTBMAT().Empresa = SessaoAtual().Empresa;
        ChaveMTBMAT().CodItem = it.CodMat2;
        // The read and the write of the block are one unit under the
        // product's lock: two terminals blocking it at once add up, one
        // waiting for the other, and neither block is lost.
        std::string erro;
        ConectorBD* conector = ConectorAtual();
        if (!conector || !conector->TravaParaAlterar("TBMAT " + TextoDecimal(SessaoAtual().Empresa) + " " +
                                                         Apara(it.CodMat2.str()),
                                                     erro)) {
            Avisa("Erro na Leitura do Produto = " + erro);
            return;
        }
        mat.Funcao = "FSEL001";
        mat.Transacao = "REQUERY";
        MTBMAT();
        const Comunica& c = ComunicaAtual();
        if (c.Status == status::SemLinha) {
            Desfaz();
            return;
        }
        if (c.Status != status::Ok) {
            Avisa("Erro na Leitura do Produto = " + c.Msg);
            Desfaz();
            return;
        }
        linha = 30;
        const double bloqueado = SemEstouro(mat.QtdItBloq + it.QtdMat);
        mat.QtdItBloq = bloqueado < 0 ? 0 : bloqueado;
        mat.Funcao = "FUPD009";
        mat.Transacao = "EXECUTE";
        MTBMAT();
        if (c.Status == status::Ok) {
            mat.Transacao = "COMMIT";
            MTBMAT();
            if (c.Status == status::Ok) return;
            MostraErroCommit();
        } else if (c.Status != status::SemLinha) {
            Avisa("Erro na Atualização dos Bloqueados = " + c.Msg);
        }
        // Nothing of a block that did not happen stays pending.
        Desfaz();
    });
    // Nor after an error: the product's lock goes with the unit.
    if (!ok) Desfaz();
}

} // namespace ztolvan
