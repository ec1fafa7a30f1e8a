// Sales order (origin "V"): the marked rows become TBPEVIT items of the
// host's open order, at the price the grid shows.
#include <optional>

#include "common/conversao.h"
#include "common/formato.h"
#include "common/mensagens.h"
#include "common/seguranca.h"
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

constexpr int32_t Passo = 10;
constexpr int32_t LimiteItem = 999999999;

bool LeituraNormal() {
    const std::string& st = ComunicaAtual().Status;
    return st == status::Ok || st == status::SemLinha;
}

// The grouping the items come from, as the grouping grid shows it: its code
// (the grid's first column) at the current row, or at the first data row
// when the header is current.
std::string CodigoDoAgrupamento(const Grade& g) {
    int r = g.Row();
    if (r < 1) r = 1;
    if (r >= g.Rows() || g.Cols() < 1) return {};
    return Apara(g.TextMatrix(r, 0));
}

// Description of a sales item: "<grouping code> / <prefix><item>" when the
// prefix is on, else the item grid's text alone.
std::string DescricaoVenda(const TelaGeracao& t, const std::string& prefixo, const std::string& descricao) {
    if (prefixo.empty()) return descricao;
    const std::string codigo = CodigoDoAgrupamento(t.MSFGAgrupamento);
    return (codigo.empty() ? std::string() : codigo + " / ") + prefixo + descricao;
}

// Stock is exhausted: the operator decides, and a Yes needs the right to sell
// without stock. True when the row goes on.
bool LiberaSemEstoque(const std::string& descricao) {
    const Sessao& s = SessaoAtual();
    const Valor resposta =
        MostraMensagem("O Produto " + Apara(descricao) + " está em Falta no estoque de " +
                           CStr(Valor(A_MTBMAT().QtdItAtu)) + " Unidade(s)., Deseja incluir?",
                       msg::SimNao, "Itens em Falta");
    if (!resposta.eNumero() || CDbl(resposta) != msg::RespostaSim) return false;
    std::string operador = s.Operador, autorizador;
    int16_t resultado = seguranca::Recusado;
    GLO_ChecaSeguranca(1, "PJVELPEV", "DISPON", operador, autorizador, resultado, "9999", s.Empresa, false,
                       "", "");
    return resultado == seguranca::Autorizado;
}

double ComissaoVendedor(int32_t vendedor) {
    if (vendedor == 0) return 0;
    Limpa(A_MTBVEN());
    ChaveMTBVEN().EMPRESA = SessaoAtual().Empresa;
    ChaveMTBVEN().CODVEND = vendedor;
    A_MTBVEN().Funcao = "FSEL001";
    A_MTBVEN().Transacao = "REQUERY";
    MTBVEN();
    return A_MTBVEN().PERCOMIS;
}

double ComissaoRepresentante(int32_t representante) {
    if (representante == 0) return 0;
    Limpa(A_MTBREP());
    ChaveMTBREP().EMPRESA = SessaoAtual().Empresa;
    ChaveMTBREP().CODREPCOM = representante;
    A_MTBREP().Funcao = "FSEL017";
    A_MTBREP().Transacao = "REQUERY";
    MTBREP();
    return A_MTBREP().PERCOMIS;
}

// "5" within the company's state, "6" outside, then the product's code.
int16_t OperacaoFiscal() {
    const bool outroEstado = Apara(A_MTBPEV().UF.str()) != Apara(A_MTBPAR().UF.str());
    return CInt(Valor((outroEstado ? "6" : "5") + TextoDecimal(A_MTBMAT().NatOper)));
}

} // namespace

void GeraVenda(TelaGeracao& t) {
    const bool ok = Trapa("GeraVenda", "TolvanF01", [&](int& linha) {
        linha = 10;
        if (!PreCondicao(t)) return;
        Sessao& s = SessaoAtual();
        LerAjuste(Ajuste::CobraICMSSubstituto);
        LerAjuste(Ajuste::DescontoCascata);
        LerAjuste(Ajuste::EmpresaOrigem);
        LerAjuste(Ajuste::PrecoVenda);
        if (s.EmpresaOrigem == 0) s.EmpresaOrigem = s.Empresa;

        linha = 20;
        A_MTBPEV_t& cab = A_MTBPEV();
        Limpa(cab);
        ChaveMTBPEV().Empresa = s.Empresa;
        ChaveMTBPEV().NumPed = s.NumDoc;
        cab.Funcao = "FSEL001";
        cab.Transacao = "REQUERY";
        MTBPEV();
        if (!LeituraNormal()) Avisa("Erro na Leitura do Pedido " + ComunicaAtual().Msg, msg::Critico);

        linha = 30;
        A_MTBPEVIT_t& it = A_MTBPEVIT();
        Limpa(it);
        ChaveMTBPEVIT().Empresa = s.Empresa;
        ChaveMTBPEVIT().NumPed = s.NumDoc;
        ChaveMTBPEVIT().Item = LimiteItem;
        it.Funcao = "FSEL003";
        it.Transacao = "OPEN";
        MTBPEVIT();
        if (!LeituraNormal()) Avisa("Erro na Leitura do Pedido " + ComunicaAtual().Msg, msg::Critico);
        int32_t ultimo = it.Item;
        it.Transacao = "CLOSE";
        MTBPEVIT();

        const std::string prefixo = PrefixoAgrupamento(t);
        std::string natOperLembrada;
        // The order's seller and representative: their rates are read once.
        std::optional<double> comissVnd, comissRep;
        const int n = t.GCon1.Rows() - 1;
        for (int r = 1; r <= n; ++r) {
            linha = 40;
            if (!Marcada(t.GCon1, r)) continue;
            Avanca(t);
            LinhaGrade l = LeLinha(t.GCon1, r);
            const double preco = NumeroDaCelula(t.GCon1, r, 5);
            const int16_t tipo = CInt(Valor(t.GCon1.TextMatrix(r, 11)));
            // A row's own price type becomes the default from here on.
            if (tipo > 0) s.PrecoVenda = tipo;

            linha = 50;
            A_MTBMATEQ_t& eq = A_MTBMATEQ();
            ChaveMTBMATEQ().Empresa = s.Empresa;
            ChaveMTBMATEQ().CodEquiv = l.equivalente;
            ChaveMTBMATEQ().Tipo = s.PrecoVenda;
            eq.Funcao = "FSEL011";
            eq.Transacao = "REQUERY";
            MTBMATEQ();
            if (!ProdutoLido(l)) continue;

            linha = 60;
            ComunicaAtual().Cursor = 0;
            A_MTBMAT_t& mat = A_MTBMAT();
            ChaveMTBMAT().Empresa = s.Empresa;
            ChaveMTBMAT().CodItem = l.produto;
            mat.Funcao = "FSEL001";
            mat.Transacao = "REQUERY";
            MTBMAT();
            if (ComunicaAtual().Status == status::Ok) {
                if (mat.QtdItAtu <= 0 && !LiberaSemEstoque(l.descricao)) continue;
            } else {
                // Without its stock record the item takes no other product's values.
                Limpa(mat);
            }

            linha = 70;
            Limpa(it);
            it.Empresa = s.Empresa;
            it.NumPed = s.NumDoc;
            it.Item = ProximoItem(ultimo, Passo);
            it.CodMat = l.equivalente;
            it.CodMat2 = l.produto;
            it.DscMat = DescricaoVenda(t, prefixo, l.descricao);
            it.UndMat = eq.UndItem;
            it.ValUnit = preco;
            if (explicacao::Ligada()) explicacao::Anota("preco", "valor do agrupamento");
            it.QtdMat = l.qtd;
            it.ClFisIPI = eq.ClasFiscal;
            it.PercIPI = eq.IPI;
            SetaCamposVenda();
            it.SitItem = "0";
            if (mat.PerComis > 0) {
                it.ComissVnd = it.ComissRep = mat.PerComis;
            } else {
                if (!comissVnd) comissVnd = ComissaoVendedor(cab.CodVendedor);
                if (!comissRep) comissRep = ComissaoRepresentante(cab.CodRep);
                it.ComissVnd = *comissVnd;
                it.ComissRep = *comissRep;
            }
            it.GrpMat = eq.GrpItem;
            it.ValTotal = SemEstouro(it.QtdMat * it.ValUnit);
            it.NatOper = OperacaoFiscal();
            it.ValItem = it.ValUnit;
            it.CodSitTrib = Formata(mat.PercPrc2, formatos::Dois);
            it.CCusto = mat.CCusto;
            it.PrecoVenda = tipo;
            natOperLembrada = TextoDecimal(it.NatOper);

            linha = 80;
            it.Funcao = "FINS001";
            it.Transacao = "EXECUTE";
            MTBPEVIT();
            if (!Inserido(l)) continue;
            IncluiPevDc();
            Confirma(it, &MTBPEVIT, it.Item);
        }

        linha = 90;
        if (!natOperLembrada.empty()) {
            int16_t empresa = cab.Empresa;
            int32_t numped = cab.NumPed;
            std::string resultado;
            fcAtualizarPedidoVenda(empresa, numped, natOperLembrada, resultado);
        }
        Conclui(t);
    });
    // Nothing of an item interrupted by an error stays pending.
    if (!ok) Desfaz();
}

void IncluiPevDc() {
    Trapa("IncluiPevDc", "TolvanF01", [&](int& linha) {
        linha = 10;
        if (Normaliza(SessaoAtual().DescontoCascata) != "SIM") return;
        linha = 20;
        const A_MTBPEVIT_t& it = A_MTBPEVIT();
        A_MTBPEVDC_t& dc = A_MTBPEVDC();
        dc.EMPRESA = SessaoAtual().Empresa;
        dc.NUMPED = it.NumPed;
        dc.ITEM = it.Item;
        dc.DESC1 = dc.DESC2 = dc.DESC3 = dc.DESC4 = dc.DESC5 = 0;
        dc.Funcao = "FINS001";
        dc.Transacao = "EXECUTE";
        MTBPEVDC();
        linha = 30;
        if (!LeituraNormal()) {
            MTBPEVDC();
            Avisa("Erro Inclusão Desconto Cascata / Msg=" + ComunicaAtual().Msg);
        }
    });
}

void fcAtualizarPedidoVenda(int16_t& Empresa, int32_t& NumPed, const std::string& NatOper,
                            std::string& Resultado) {
    int linha = 0;
    try {
        linha = 10;
        const std::string sql = "UPDATE TBPEV " + std::string(" SET NATOPER = '") + Apara(NatOper) + "'" +
                                " WHERE EMPRESA = " + TextoDecimal(Empresa) +
                                " AND NumPed = " + TextoDecimal(NumPed);
        linha = 20;
        Comunica& c = ComunicaAtual();
        c.Cursor = 0;
        c.Dados = std::string();
        c.Retorno = std::string();
        PreparaComando(sql);
        c.Transacao = "EXECUTE";
        c.Retorno = std::string();
        ExecutaComunica();
        linha = 30;
        Resultado = c.Status + "/" + c.Msg;
        if (Val(c.Status) == 0) FazCommit();
    } catch (const std::exception& e) {
        const auto* erro = dynamic_cast<const ErroExecucao*>(&e);
        Resultado = "99/Erro não Previsto - fcAtualizarPedidoVenda LINHA:" + std::to_string(linha) + " " +
                    (erro ? erro->Descricao() : std::string(e.what()));
        MostraMensagem(Resultado, msg::Critico, "Pedido de Compra");
    }
}

} // namespace ztolvan
