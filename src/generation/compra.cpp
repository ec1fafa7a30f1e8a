// Purchase order (origin "C"): the marked rows become TBPECIT items of the
// host's open order for its supplier, at net cost (or the sale price), with
// the supplier's cost conditions and the ICMS substitution rate and base.
#include "common/conversao.h"
#include "common/mensagens.h"
#include "common/texto.h"
#include "data/comunica.h"
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

constexpr int32_t Passo = 10;
constexpr int32_t LimiteItem = 999999999;

bool LeituraNormal() {
    const std::string& st = ComunicaAtual().Status;
    return st == status::Ok || st == status::SemLinha;
}

// The cost columns that the item takes from the supplier's cost record.
#define ZT_CUSTOS_IGUAIS(X)                                                                                  \
    X(PrecoTab)                                                                                              \
    X(Desc1) X(Desc2) X(Desc3) X(Desc4) X(Desc5) X(Desc6) X(Desc7) X(Desc8) X(EncFin) X(Emb) X(Frete)        \
        X(FreteFob) X(FreteEmbut) X(PerCofins) X(PerCusFixo) X(PerMargem) X(PerCPMF) X(PerIRPJ) X(PerCSSL)   \
            X(PerICMSVenda) X(PerICMSFrete) X(PerIPIVenda) X(Per1) X(Per2) X(Per3) X(Acrescimo) X(ICMSDesp)  \
                X(ICMSRed) X(Seguro) X(DespAcess) X(RedCredIcms)

void ZeraCustos(A_MTBPECIT_t& it) {
#define ZT_ZERA_(c) it.c = 0;
    ZT_CUSTOS_IGUAIS(ZT_ZERA_)
#undef ZT_ZERA_
    it.MultVend = 0;
    it.PerPis = 0;
    it.PercICMS = 0;
}

void CopiaCustos(A_MTBPECIT_t& it, const A_MTBCUS_t& c) {
#define ZT_COPIA_(col) it.col = c.col;
    ZT_CUSTOS_IGUAIS(ZT_COPIA_)
#undef ZT_COPIA_
    it.MultVend = c.MultVen;
    it.PerPis = c.PerPIS;
    it.PercICMS = c.ICMS;
}

} // namespace

bool LerCusto(double& Custo) {
    bool lido = false;
    Trapa("LerCusto", "TolvanF01", [&](int& linha) {
        linha = 10;
        A_MTBPECIT_t& it = A_MTBPECIT();
        ZeraCustos(it);
        linha = 20;
        A_MTBCUS_t& c = A_MTBCUS();
        ChaveMTBCUS().Empresa = SessaoAtual().EmpresaPreco;
        ChaveMTBCUS().CodMat = it.CodMat2;
        ChaveMTBCUS().CodFor = it.CodFor;
        c.Funcao = "FSEL001";
        c.Transacao = "REQUERY";
        MTBCUS();
        linha = 30;
        const Comunica& k = ComunicaAtual();
        if (k.Status == status::Ok) {
            CopiaCustos(it, c);
            Custo = CustoLiquido(c);
            lido = true;
        } else if (k.Status != status::SemLinha) {
            Avisa("Erro na Leitura do Custo do Produto " + Apara(it.CodMat2.str()));
        }
    });
    return lido;
}

void LerFornecedor() {
    Trapa("LerFornecedor", "TolvanF01", [&](int& linha) {
        linha = 10;
        ChaveMTBFOR().EMPRESA = SessaoAtual().EmpresaOrigem;
        ChaveMTBFOR().CODFORN = A_MTBPECIT().CodFor;
        A_MTBFOR().Funcao = "FSEL002";
        A_MTBFOR().Transacao = "REQUERY";
        MTBFOR();
        linha = 20;
        if (!LeituraNormal())
            Avisa("Erro não Previsto - LerFornecedor " + ComunicaAtual().Status + "/" + ComunicaAtual().Msg);
    });
}

void GeraCompra(TelaGeracao& t) {
    const bool ok = Trapa("GeraCompra", "TolvanF01", [&](int& linha) {
        linha = 10;
        if (!PreCondicao(t)) return;
        Sessao& s = SessaoAtual();
        LerAjuste(Ajuste::EmpresaOrigem);
        if (s.EmpresaOrigem == 0) s.EmpresaOrigem = s.Empresa;
        LerAjuste(Ajuste::CompraPrcVen);
        const bool precoDeVenda = Normaliza(s.CompraPrcVen) != "NAO";

        linha = 20;
        A_MTBPEC_t& cab = A_MTBPEC();
        Limpa(cab);
        ChaveMTBPEC().Empresa = s.Empresa;
        ChaveMTBPEC().NumPed = s.NumDoc;
        cab.Funcao = "FSEL001";
        cab.Transacao = "OPEN";
        MTBPEC();
        // One number may hold the orders of several suppliers: this order's
        // header is the session's supplier's, never another's.
        while (ComunicaAtual().Status == status::Ok && cab.CodFor != s.CodFor) {
            cab.Transacao = "NEXT";
            MTBPEC();
        }
        if (!LeituraNormal()) Avisa("Erro na Leitura do Pedido " + ComunicaAtual().Msg, msg::Critico);
        if (ComunicaAtual().Status != status::Ok) Limpa(cab);
        cab.Transacao = "CLOSE";
        MTBPEC();

        linha = 30;
        A_MTBPECIT_t& it = A_MTBPECIT();
        Limpa(it);
        ChaveMTBPECIT().Empresa = s.Empresa;
        ChaveMTBPECIT().NumPed = s.NumDoc;
        ChaveMTBPECIT().CodFor = s.CodFor;
        ChaveMTBPECIT().Item = LimiteItem;
        it.Funcao = "FSEL003";
        it.Transacao = "OPEN";
        MTBPECIT();
        if (!LeituraNormal()) Avisa("Erro na Leitura do Pedido " + ComunicaAtual().Msg, msg::Critico);
        int32_t ultimo = it.Item;
        it.Transacao = "CLOSE";
        MTBPECIT();

        const std::string prefixo = PrefixoAgrupamento(t);
        const int n = t.GCon1.Rows() - 1;
        for (int r = 1; r <= n; ++r) {
            linha = 40;
            if (!Marcada(t.GCon1, r)) continue;
            Avanca(t);
            const LinhaGrade l = LeLinha(t.GCon1, r);
            A_MTBMATEQ_t& eq = A_MTBMATEQ();
            ChaveMTBMATEQ().Empresa = s.Empresa;
            ChaveMTBMATEQ().CodEquiv = l.equivalente;
            ChaveMTBMATEQ().Tipo = CInt(Val(s.TipoPreco));
            eq.Funcao = "FSEL011";
            eq.Transacao = "REQUERY";
            MTBMATEQ();
            if (!ProdutoLido(l) || !Disponivel(l)) continue;

            linha = 50;
            Limpa(it);
            it.Empresa = s.Empresa;
            it.NumPed = s.NumDoc;
            it.CodFor = s.CodFor;
            it.Item = ProximoItem(ultimo, Passo);
            it.CodMat = l.equivalente;
            it.CodMat2 = l.produto;
            it.DscMat = prefixo + l.descricao;
            it.UndMat = eq.UndItem;
            it.QtdMat = l.qtd;
            it.QtdRec = it.QtdMat;
            it.ClFisIPI = eq.ClasFiscal;
            it.PercIPI = eq.IPI;

            linha = 60;
            // A product without a cost record costs 0, never the previous row's cost.
            double custo = 0;
            const bool custoLido = LerCusto(custo);
            it.ValUnit = precoDeVenda ? eq.Valor : custo;
            if (explicacao::Ligada())
                explicacao::Anota("preco", precoDeVenda ? "valor da equivalência (COMPRA PRCVEN)"
                                           : custoLido  ? "custo líquido do fornecedor"
                                                        : "sem custo do fornecedor: 0");
            it.ValRec = it.ValUnit;
            if (it.ValUnit <= 0)
                Avisa("Produto " + l.equivalente + CR + l.descricao + CR + " sem Valores definidos!");
            LerFornecedor();

            linha = 70;
            it.SitTrib = eq.SitTrib;
            const std::string sit = eq.SitTrib.str();
            if (sit == "0" || sit == "2") {
                it.PercICMS = 0;
                it.PercICMSS = 0;
            } else if (sit == "1" || sit == "4") {
                it.PercICMSS = 0;
            } else if (sit == "3") {
                it.PercICMSS = PercSubstituicaoCompra(eq.PercIsen, eq.CodICMSS);
            }
            it.BaseIcmsSub = 0;
            if (it.PercICMSS > 0 && ArredondaPar(it.ValUnit) != 0) CalculaBaseIcmsSub(custoLido);

            linha = 80;
            it.SitItem = "0";
            it.GrpMat = eq.GrpItem;
            it.NatOper = cab.NatOper;
            it.CCusto = A_MTBMAT().CCusto;
            it.Funcao = "FINS001";
            it.Transacao = "EXECUTE";
            MTBPECIT();
            if (!Inserido(l)) continue;
            Confirma(it, &MTBPECIT, it.Item);
        }
        Conclui(t);
    });
    if (!ok) Desfaz();
}

} // namespace ztolvan
