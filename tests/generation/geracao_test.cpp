// The three generators end to end on the demo data of both databases: every
// field of a written row against values worked out by hand, and the row
// walk's messages, numbering and endings.
#include "generation/geracao_teste.h"

#include <algorithm>
#include <cmath>

#include "data/modules/modulos.h"
#include "entry/sessao.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

const Valor VendaRJ = Valor::Lista{5102, "1", -1, "SP", "RJ", "SP", "RJ"};
const char* const Arroz = "7891234100100"; // equivalence of product 1001

class Geracao : public GeracaoDemo {
  protected:
    void SetUp() override {
        GeracaoDemo::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        // Product 1001 (first item of 000101) with values chosen for the sums below.
        db->Direto("UPDATE TBMAT SET PrcItem4 = 10, UltCValor = 12.5, PerComis = 0, NatOper = 102, "
                   "PercPrc2 = 7, QtdItAtu = 50, QtdItBloq = 3, CCusto = 'CC-ARROZ' "
                   "WHERE Empresa = 1 AND CodItem = '1001'");
        db->Direto("UPDATE TBMATEQ SET SitTrib = '1', PercIsen = 1, CodICMSS = 4, IPI = 10, QtdUnd = 0 "
                   "WHERE Empresa = 1 AND CodItem = '1001'");
    }
    // Keeps only the rows of these products (the item load has no order of
    // its own), in this order, marked; "" is the row of a product the stock
    // no longer has.
    static std::function<void(TolvanF01&)> Linhas(std::vector<std::string> codigos) {
        return [codigos](TolvanF01& f) {
            Grade& g = f.GCon1;
            std::vector<std::string> linhas;
            for (const std::string& c : codigos)
                for (int r = 1; r < g.Rows(); ++r) {
                    if (Apara(g.TextMatrix(r, 9)) != c) continue;
                    std::string l = "*";
                    for (int k = 1; k < g.Cols(); ++k)
                        l += "\t" + g.TextMatrix(r, k);
                    linhas.push_back(l);
                    break;
                }
            ASSERT_EQ(linhas.size(), codigos.size());
            g.DefineRows(1);
            for (const std::string& l : linhas)
                g.AddItem(l);
        };
    }
    int Conta(const std::string& sql) { return static_cast<int>(CDbl(Um(sql))); }
};

TEST_P(Geracao, VendaGravaCadaCampoDoItemEODescontoEmCascata) {
    Ajuste("Descricao Agrupamento Produto", "SIM");
    Ajuste("Qtd Posicoes Agrupamento", "5");
    Ajuste("DESCONTO CASCATA", "sim");
    db->Direto("UPDATE TBPEV SET NatOper = 1 WHERE Empresa = 1 AND NumPed = 1");
    EXPECT_EQ(Gera("V", VendaRJ, "000101", 2, Linhas({"1001", "1002"})), 0);

    // Substitution charged (datum 2 = -1), final consumer in RJ: codes 1 and 4
    // both have 20.5 there; seller 1 earns 2.5, representative 10 earns 4;
    // order in SP, company in SP, product 102: 5102.
    const auto e = Registro<A_MTBPEVIT_t>(
        {{"Empresa", 1}, {"NumPed", 1}, {"Item", 10}, {"CodMat", Arroz}, {"CodMat2", "1001"},
         {"DscMat", "000101 / Cesta Arroz agulhinha tipo 1 5kg"}, {"UndMat", "PC"}, {"ValUnit", 24.9},
         {"QtdMat", 2}, {"ClFisIPI", "10063021"}, {"PercIPI", 10}, {"PercICMS", 20.5}, {"SitTrib", "3"},
         {"SitItem", "0"}, {"ComissVnd", 2.5}, {"ComissRep", 4}, {"PercICMSS", 20.5}, {"GrpMat", "MERCEARIA"},
         {"ValTotal", 49.8}, {"NatOper", 5102}, {"ValItem", 24.9}, {"CodSitTrib", "07"}, {"CCusto", "CC-ARROZ"},
         {"PrecoVenda", 1}});
    A_MTBPEVIT_t l;
    ASSERT_TRUE(Le(l, "TBPEVIT", "Empresa = 1 AND NumPed = 1 AND Item = 10"));
    Compara(e, l);
    ASSERT_TRUE(Le(l, "TBPEVIT", "Empresa = 1 AND NumPed = 1 AND Item = 20"));
    EXPECT_EQ(Apara(l.CodMat2.str()), "1002");
    EXPECT_EQ(l.SitTrib, "0") << "product 1002 is in situation 0";

    A_MTBPEVDC_t dc;
    ASSERT_TRUE(Le(dc, "TBPEVDC", "EMPRESA = 1 AND NUMPED = 1 AND ITEM = 20"));
    EXPECT_EQ(dc.DESC1 + dc.DESC2 + dc.DESC3 + dc.DESC4 + dc.DESC5, 0);
    EXPECT_EQ(Conta("SELECT COUNT(*) FROM TBPEVDC WHERE NUMPED = 1"), 2);
    EXPECT_EQ(CInt(Um("SELECT NatOper FROM TBPEV WHERE Empresa = 1 AND NumPed = 1")), 5102);
    EXPECT_EQ(ItensGerados(), (std::vector<int32_t>{10, 20}));
    EXPECT_TRUE(Mostradas().empty()) << Textos().front();

    // A second generation continues the numbering.
    EXPECT_EQ(Gera("V", VendaRJ, "000101", 1, Linhas({"1003"})), 0);
    EXPECT_EQ(ItensGerados(), std::vector<int32_t>{30});

    // A count of 0 leaves a lone blank before the description; a negative
    // count, no prefix at all, and so no grouping code either.
    const std::string nome = Apara(CStr(Um("SELECT DscItem FROM TBMATAG WHERE Codigo = '000101' AND CodItem = '1003'")));
    for (const auto& [conta, dsc] : {std::pair{"0", "000101 /  " + nome}, std::pair{"-3", nome}}) {
        db->Direto(std::string("UPDATE TBREGSRV SET valor = '") + conta + "' WHERE chave = 'Qtd Posicoes Agrupamento'");
        EXPECT_EQ(Gera("V", VendaRJ, "000101", 1, Linhas({"1003"})), 0);
        ASSERT_EQ(ItensGerados().size(), 1u);
        ASSERT_TRUE(Le(l, "TBPEVIT", "Empresa = 1 AND NumPed = 1 AND Item = " + std::to_string(ItensGerados()[0])));
        EXPECT_EQ(Apara(l.DscMat.str()), dsc) << conta;
    }
}

TEST_P(Geracao, VendaSemEstoquePerguntaEPedeODireitoETipoDaLinhaViraPadrao) {
    db->Direto("UPDATE TBMAT SET QtdItAtu = -2.5 WHERE Empresa = 1 AND CodItem IN ('1002', '1003')");
    db->Direto("UPDATE TBMATEQ SET ClasFiscal = 'TIPO3' WHERE Tipo = 3");
    db->mensagens->Responde(7); // 1002: No
    db->mensagens->Responde(6); // 1003: Yes, and the right is refused
    seguranca->resultado = seguranca::Recusado;
    EXPECT_EQ(Gera("V", VendaRJ, "000101", 1,
                   [](TolvanF01& f) {
                       Linhas({"1001", "1002", "1003", "1004"})(f);
                       for (int r = 1; r < f.GCon1.Rows(); ++r)
                           f.GCon1.DefineTextMatrix(r, TolvanF01::ColTipo, r == 1 ? "3" : "0");
                   }),
              0);
    ASSERT_EQ(Mostradas().size(), 2u);
    EXPECT_EQ(
        Mostradas()[0].Texto,
        "O Produto Feijão carioca tipo 1 1kg está em Falta no estoque de -2,5 Unidade(s)., Deseja incluir?");
    EXPECT_EQ(Mostradas()[0].Tipo, 4);
    EXPECT_EQ(Mostradas()[0].Titulo, "Itens em Falta");
    ASSERT_EQ(seguranca->pedidas.size(), 1u) << "No never asks for the right";
    const ChecagemPedida& p = seguranca->pedidas[0];
    EXPECT_EQ(p.Codigo, 1);
    EXPECT_EQ(p.Programa, "PJVELPEV");
    EXPECT_EQ(p.Funcao, "DISPON");
    EXPECT_EQ(p.TextoPassado, "9999");
    EXPECT_EQ(p.Empresa, 1);
    EXPECT_EQ(p.Operador, "TESTE");
    // 1002 and 1003 skipped without a gap; every row read type 3 after row 1.
    EXPECT_EQ(ItensGerados(), (std::vector<int32_t>{10, 20}));
    A_MTBPEVIT_t l;
    ASSERT_TRUE(Le(l, "TBPEVIT", "Empresa = 1 AND NumPed = 1 AND Item = 20"));
    EXPECT_EQ(Apara(l.CodMat2.str()), "1004");
    EXPECT_EQ(Apara(l.ClFisIPI.str()), "TIPO3");
    EXPECT_EQ(l.PrecoVenda, 0) << "the field keeps the row's own type";
    EXPECT_EQ(SessaoAtual().PrecoVenda, 3);

    // With the right, a Yes writes the item.
    seguranca->resultado = seguranca::Autorizado;
    EXPECT_EQ(Gera("V", VendaRJ, "000101", 1, Linhas({"1002"})), 0);
    EXPECT_EQ(ItensGerados(), std::vector<int32_t>{30});
}

TEST_P(Geracao, DocumentoPorTipoComMargemIPIEBloqueio) {
    Ajuste("BLOQUEIA ITENS", "SIM");
    const Valor dados = Valor::Lista{5102, "1", -1, "SP", "RJ", "SP", "RJ"};
    // Type 2: FLGES 2, FLGCMED 0 (FlCMES "3", blocks stock), FLGFC 1 (joined read).
    EXPECT_EQ(Gera("D", dados, "000101", 2, Linhas({"1001"}), 2), 0);
    // QTDUND 0 reads as 1; u = 24.9, charges 24.9 x (20.5 + 3 + 0.65 + 12 +
    // 1.2 + 1.08) / 100 = 9.56907 against the cost 10.
    const auto e = Registro<A_MTBDOCIT_t>(
        {{"Empresa", 1}, {"Seq", 1}, {"NumNF", "000123"}, {"SerieNF", "1"}, {"Item", 100}, {"CodMat", Arroz},
         {"CodMat2", "1001"}, {"DscMat", "Arroz agulhinha tipo 1 5kg"}, {"UndMat", "PC"}, {"ValUnit", 24.9},
         {"QtdUnd", 1}, {"QtdMat", 2}, {"ClFisIPI", "10063021"}, {"PercIPI", 10}, {"PercICMS", 20.5},
         {"SitTrib", "3"}, {"FlCMES", "3"}, {"Status", "0"}, {"ComissVnd", 2.5}, {"ComissRep", 4},
         {"PercICMSS", 20.5}, {"TpMov", 2}, {"GrpMat", "MERCEARIA"}, {"ValTotal", 49.8}, {"CustoGer", 10},
         {"MargemLiq", 24.9 - 10 - 9.56907}, {"BaseIPI", 49.8}, {"ValIPI", 4.98}, {"NatOper", 5102},
         {"CodSitTrib", "00"}, {"CCusto", "CC-ARROZ"}, {"ValItem", 24.9}, {"PrecoVenda", 1}});
    A_MTBDOCIT_t l;
    ASSERT_TRUE(Le(l, "TBDOCIT", "Empresa = 1 AND Seq = 1 AND Item = 100"));
    Compara(e, l);
    EXPECT_EQ(CDbl(Um("SELECT QtdItBloq FROM TBMAT WHERE Empresa = 1 AND CodItem = '1001'")), 5);

    // Type 1 (FLGES 1, FLGCMED 0): last purchase value, no IPI, no margin,
    // commissions left at 0, FlCMES "2" and no blocking; numbered by 100.
    EXPECT_EQ(Gera("D", dados, "000101", 2, Linhas({"1001"}), 1), 0);
    ASSERT_TRUE(Le(l, "TBDOCIT", "Empresa = 1 AND Seq = 1 AND Item = 200"));
    EXPECT_EQ(l.ValUnit, 12.5);
    EXPECT_EQ(Apara(l.ClFisIPI.str()), "");
    EXPECT_EQ(l.PercIPI + l.BaseIPI + l.ValIPI + l.CustoGer + l.MargemLiq + l.ComissVnd + l.ComissRep, 0);
    EXPECT_EQ(l.FlCMES, "2");
    EXPECT_EQ(l.TpMov, 1);
    EXPECT_EQ(CDbl(Um("SELECT QtdItBloq FROM TBMAT WHERE Empresa = 1 AND CodItem = '1001'")), 5);
    // CTAIR starting with 1 takes PrcItem4.
    db->Direto("UPDATE TBPNF SET CTAIR = '1.1.02' WHERE EMPRESA = 1 AND CODIGO = 1");
    Gera("D", dados, "000101", 1, Linhas({"1001"}), 1);
    ASSERT_TRUE(Le(l, "TBDOCIT", "Empresa = 1 AND Seq = 1 AND Item = 300"));
    EXPECT_EQ(l.ValUnit, 10);

    // Back on type 2, a negative quantity lowers the block, never below 0.
    db->Direto("UPDATE TBMATAG SET Qtd = -4 WHERE Empresa = 1 AND Codigo = '000101' AND CodItem = '1001'");
    Gera("D", dados, "000101", 2, Linhas({"1001"}), 2);
    EXPECT_EQ(CDbl(Um("SELECT QtdItBloq FROM TBMAT WHERE Empresa = 1 AND CodItem = '1001'")), 0);
    EXPECT_EQ(ItensGerados(), std::vector<int32_t>{400});
    EXPECT_TRUE(Mostradas().empty()) << Textos().front();
}

TEST_P(Geracao, CompraPeloCustoLiquidoComBaseDeSubstituicao) {
    db->Direto("UPDATE TBMATEQ SET SitTrib = '3' WHERE Empresa = 1 AND CodItem = '1001'");
    db->Direto(
        "UPDATE TBCUS SET PrecoTab = 200, Desc1 = 10, Desc2 = 0, IPI = 12, ICMS = 7, Frete = 5, "
        "Emb = 2, FreteEmbut = 0, Seguro = 1.5 WHERE Empresa = 1 AND CodMat = '1001' AND CodFor = 101");
    // 1002 has no substitution: no base, and its cost record's IPI is not taken.
    db->Direto("UPDATE TBMATEQ SET SitTrib = '1', IPI = 4 WHERE Empresa = 1 AND CodItem = '1002'");
    db->Direto("UPDATE TBCUS SET IPI = 9 WHERE Empresa = 1 AND CodMat = '1002' AND CodFor = 101");
    const Valor dados = Valor::Lista{1102, 101};
    // 1009 has no cost with supplier 101: generated at 0, and said so.
    EXPECT_EQ(Gera("C", dados, "000101", 2, Linhas({"1001", "1002", "1009"})), 0);
    // 200 less 10%; IPI the cost record's once the base is worked out;
    // ordinary rates 18 (codes 1 and 4): 3600 / 18 / 100 x 100 - 100; freight
    // 9, packing 3.6, ipi (180 + 3.6) x 12% = 22.032: base 2 x (180 + 9 + 22.032) x 2.
    const auto e = Registro<A_MTBPECIT_t>(
        {{"Empresa", 1}, {"NumPed", 1}, {"CodFor", 101}, {"Item", 10}, {"CodMat", Arroz}, {"CodMat2", "1001"},
         {"DscMat", "Arroz agulhinha tipo 1 5kg"}, {"UndMat", "PC"}, {"ValUnit", 180}, {"QtdMat", 2},
         {"ClFisIPI", "10063021"}, {"PercIPI", 12}, {"SitItem", "0"}, {"PrecoTab", 200}, {"Desc1", 10},
         {"Emb", 2}, {"Frete", 5}, {"MultVend", 1.35}, {"PercICMS", 7}, {"PercICMSS", 100}, {"SitTrib", "3"},
         {"GrpMat", "MERCEARIA"}, {"QtdRec", 2}, {"ValRec", 180}, {"BaseIcmsSub", 844.128}, {"PerCusFixo", 10},
         {"PerPis", 0.65}, {"PerCofins", 3}, {"PerMargem", 30}, {"PerICMSVenda", 18}, {"Seguro", 1.5},
         {"NatOper", 1102}, {"CCusto", "CC-ARROZ"}});
    A_MTBPECIT_t l;
    ASSERT_TRUE(Le(l, "TBPECIT", "Empresa = 1 AND NumPed = 1 AND CodFor = 101 AND Item = 10"));
    Compara(e, l);
    ASSERT_TRUE(Le(l, "TBPECIT", "Empresa = 1 AND NumPed = 1 AND CodFor = 101 AND CodMat2 = '1002'"));
    EXPECT_GT(l.ValUnit, 0);
    EXPECT_EQ(l.PercIPI, 4);
    EXPECT_EQ(l.BaseIcmsSub, 0);
    ASSERT_TRUE(Le(l, "TBPECIT", "Empresa = 1 AND NumPed = 1 AND CodFor = 101 AND CodMat2 = '1009'"));
    EXPECT_EQ(l.ValUnit, 0);
    EXPECT_EQ(l.PrecoTab, 0);
    ASSERT_EQ(Mostradas().size(), 1u);
    EXPECT_EQ(Mostradas()[0].Texto, "Produto " + TextoFixo("7891234100900", 20) +
                                        "\rLeite UHT integral 1L\r sem Valores definidos!");

    // The sale price instead of the cost, and another supplier's order of
    // the same number numbers its items apart.
    Ajuste("COMPRA PRCVEN", "SIM");
    db->Direto("INSERT INTO TBPEC (Empresa, NumPed, CodFor, NatOper) VALUES (1, 1, 106, 2102)");
    EXPECT_EQ(Gera("C", Valor::Lista{1102, 106}, "000101", 1, Linhas({"1001"})), 0);
    ASSERT_TRUE(Le(l, "TBPECIT", "Empresa = 1 AND NumPed = 1 AND CodFor = 106 AND Item = 10"));
    EXPECT_EQ(l.ValUnit, 24.9);
    EXPECT_EQ(l.PrecoTab, 0) << "no cost record for supplier 106";
    EXPECT_EQ(l.PercIPI, 10) << "without a cost record the equivalence's IPI stays";
    EXPECT_EQ(l.NatOper, 2102) << "the header of the session's supplier, not the first of the number";
    // A supplier with no header of its own under this number: an empty one.
    EXPECT_EQ(Gera("C", Valor::Lista{1102, 104}, "000101", 1, Linhas({"1001"})), 0);
    ASSERT_TRUE(Le(l, "TBPECIT", "Empresa = 1 AND NumPed = 1 AND CodFor = 104 AND Item = 10"));
    EXPECT_EQ(l.NatOper, 0);
    EXPECT_EQ(Mostradas().size(), 1u) << "no header is no error";
}

TEST_P(Geracao, CaminhoDoComandoMarcasMultiplicadorEOrigens) {
    // The multiplier dialog closed with Esc leaves QtdGera at 0.
    janelas->AoMostrar("TolvanF01", [](Tela& t) {
        auto& f = static_cast<TolvanF01&>(t);
        Busca(f, 1, "000101");
        f.Tecla(&f.GCon1, tecla::Letra('G'), modificador::Ctrl);
    });
    int16_t empresa = 1, opcao = 1, ret = 0, zs = 0, tp = 0;
    int32_t cod = 0, doc = 1;
    std::string op = "TESTE", senha, origem = "V", mens;
    Valor dados = VendaRJ;
    componente->ZProcessa(empresa, op, senha, opcao, cod, origem, doc, tp, ret, zs, mens, &dados);
    EXPECT_EQ(ret, 1);
    EXPECT_EQ(Textos(), std::vector<std::string>{"Zero Itens Gerados"});

    // " v " is the sales mode on the screen (not marked at load) and V here.
    db->mensagens->Limpa();
    EXPECT_EQ(Gera(" v ", VendaRJ, "000101", 1, Linhas({"1001"})), 0);
    EXPECT_EQ(ItensGerados(), std::vector<int32_t>{10});

    // "P": the multiplier is asked, nothing generated.
    janelas->AoMostrar("TolvanF01", [this](Tela& t) {
        auto& f = static_cast<TolvanF01&>(t);
        f.MSFGAgrupamento.Seleciona(1, 0);
        f.GCon1.DefineTextMatrix(1, 0, "*");
        const size_t antes = janelas->Conta("Modal");
        sbGerarDocumento(f);
        EXPECT_EQ(janelas->Conta("Modal"), antes + 1);
    });
    origem = "P";
    componente->ZProcessa(empresa, op, senha, opcao, cod, origem, doc, tp, ret, zs, mens, &dados);
    EXPECT_EQ(ret, 1);
    EXPECT_EQ(Conta("SELECT COUNT(*) FROM TBPEVIT"), 1);

    // Purchase origin starts unmarked: nothing marked, no multiplier dialog.
    db->mensagens->Limpa();
    const size_t modais = janelas->Conta("Modal");
    EXPECT_EQ(Gera("C", Valor::Lista{1102, 101}, "000101"), 1);
    EXPECT_EQ(Textos(), std::vector<std::string>{"Deve-se selecionar algum Produto"});
    EXPECT_EQ(janelas->Conta("Modal"), modais + 1) << "TolvanF01 only";
}

TEST_P(Geracao, ProdutoDesconhecidoIndisponivelEErroDeExecucao) {
    // 000102 holds a product the stock no longer has (row 6); 1002 blocked.
    db->Direto("UPDATE TBMATEQ SET Dispon = '1' WHERE Empresa = 1 AND CodItem = '1002'");
    db->Direto("UPDATE TBMATEQ SET Dispon = '5' WHERE Empresa = 1 AND CodItem = '1003'");
    EXPECT_EQ(
        Gera("D", VendaRJ, "000102", 1, Linhas({"1001", "1002", "1003", "1005", "1006", "", "1014"}), 1), 0);
    const std::vector<std::string> t = Textos();
    ASSERT_EQ(t.size(), 2u);
    EXPECT_EQ(t[0],
              "Produto " + TextoFixo("7891234100200", 20) + "\rFeijão carioca tipo 1 1kg\r NÃO DISPONÍVEL!");
    EXPECT_EQ(t[1], "Produto " + TextoFixo("", 20) +
                        "\rPRODUTO NÃO CADASTRADO PARA ESTA EMPRESA\r NÃO CADASTRADO !");
    EXPECT_EQ(Mostradas()[1].Tipo, 48);
    EXPECT_EQ(Mostradas()[1].Titulo, "Agrupamento");
    EXPECT_EQ(ItensGerados(), (std::vector<int32_t>{100, 200, 300, 400, 500}));

    // A product whose situation is not a number stops the sales loop with
    // the report; the items before it stay written.
    db->mensagens->Limpa();
    db->Direto("UPDATE TBMATEQ SET SitTrib = 'X' WHERE Empresa = 1 AND CodItem = '1003'");
    EXPECT_EQ(Gera("V", VendaRJ, "000102", 1, Linhas({"1001", "1002", "1003", "1005"})), 0);
    ASSERT_EQ(Mostradas().size(), 1u);
    EXPECT_EQ(Mostradas()[0].Texto, "Atenção! erro não previsto na função - GeraVenda");
    EXPECT_EQ(Mostradas()[0].Tipo, 16);
    EXPECT_EQ(Mostradas()[0].Titulo, "Aviso");
    EXPECT_EQ(ItensGerados(), (std::vector<int32_t>{10, 20}));
    EXPECT_EQ(Conta("SELECT COUNT(*) FROM TBPEVIT WHERE NumPed = 1"), 2);
    // In a store document the same fault ends only Calcula_Tributos: its
    // report, and the row is written with the emptied record's taxes.
    db->mensagens->Limpa();
    EXPECT_EQ(Gera("D", VendaRJ, "000102", 1, Linhas({"1001", "1003", "1005"}), 2), 0);
    ASSERT_EQ(Mostradas().size(), 1u) << Textos().front();
    EXPECT_EQ(Mostradas()[0].Texto, "Atenção! erro não previsto na função - Calcula_Tributos");
    EXPECT_EQ(ItensGerados(), (std::vector<int32_t>{600, 700, 800}));
    A_MTBDOCIT_t l;
    ASSERT_TRUE(Le(l, "TBDOCIT", "Empresa = 1 AND Seq = 1 AND Item = 700"));
    EXPECT_EQ(Apara(l.CodMat2.str()), "1003");
    EXPECT_EQ(Apara(l.SitTrib.str()), "");
    EXPECT_EQ(l.PercICMS + l.PercICMSS, 0);
    EXPECT_GT(l.ValUnit, 0) << "the price was set before the taxes";
    ASSERT_TRUE(Le(l, "TBDOCIT", "Empresa = 1 AND Seq = 1 AND Item = 800"));
    EXPECT_NE(Apara(l.SitTrib.str()), "") << "the next row has its own taxes";
}

// The return status turns 0 when an insert is accepted, as the host reads
// "a line was generated"; a commit refused after it keeps its own message
// and leaves nothing of the row.
TEST_P(Geracao, InsertAceitoDevolveZeroMesmoComOCommitRecusado) {
    componente.reset();
    FechaConexao();
    ConectorGravador* gravador = GravaChamadas(GetParam());
    componente = std::make_unique<consultalista>();
    ASSERT_EQ(ComunicaAtual().Status, "00") << ComunicaAtual().Msg;
    // The item's COMMIT, not the header's after the loop.
    gravador->falha = [primeiro = true](const std::string& t) mutable {
        if (t != "COMMIT" || !primeiro) return false;
        primeiro = false;
        return true;
    };
    EXPECT_EQ(Gera("V", VendaRJ, "000101", 1, Linhas({"1001"})), 0);
    ASSERT_EQ(Mostradas().size(), 1u) << ::testing::PrintToString(Textos());
    EXPECT_EQ(Mostradas()[0].Texto,
              "Erro no Commit..\\ Comunica.Transacao=COMMIT\\ Comunica.Msg=falha simulada\\ Comunica.Status99");
    gravador->falha = nullptr;
    EXPECT_EQ(Conta("SELECT COUNT(*) FROM TBPEVIT WHERE NumPed = 1"), 0);
    EXPECT_TRUE(ItensGerados().empty());
}

ZTOLVAN_NOS_DOIS_BANCOS(Geracao);

} // namespace
