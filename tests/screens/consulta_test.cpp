// The groupings list and the consultation screen on the demo data of both
// databases, driven as an operator would through the display-free window
// system; statements checked as sent.
#include <gtest/gtest.h>

#include <sstream>

#include "common/conversao.h"
#include "common/formato.h"
#include "common/portas.h"
#include "common/texto.h"
#include "data/modules/modulos_teste.h"
#include "screens/demo_telas.h"
#include "screens/tela_teste.h"
#include "entry/sessao.h"
#include "screens/auxiliary/tolvanf02.h"
#include "screens/auxiliary/tolvanf03.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/janelas.h"
#include "screens/teclas.h"
#include "screens/troca.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class Consulta : public TelasNoDemo<> {
  protected:
    static std::vector<std::string> Codigos(const Grade& g) {
        std::vector<std::string> r;
        for (int i = 1; i < g.Rows(); ++i)
            r.push_back(AparaDireita(g.TextMatrix(i, 0)));
        return r;
    }
};

TEST_P(Consulta, ListaDeAgrupamentosAbreSemPrepararCortaNomesEDevolveOCodigo) {
    db->Direto("UPDATE TBMATAG SET NOME = '" + std::string(70, 'N') +
               "' WHERE EMPRESA = 1 AND CODIGO = '000108'");
    db->Direto("UPDATE TBMATAG SET CODIGO = '007' WHERE EMPRESA = 1 AND CODIGO = '000111'");
    db->Direto("UPDATE TBMATAG SET CODIGO = 'ESCOLAR' WHERE EMPRESA = 1 AND CODIGO = '000104'");
    janelas->AoMostrar("TolvanF02", [](Tela& t) {
        auto& f = static_cast<TolvanF02&>(t);
        auto& l = f.lstProdutosAgrupados;
        ASSERT_GT(l.ListCount(), 5);
        EXPECT_EQ(l.ListIndex, 0) << "the first entry is selected on activation";
        EXPECT_EQ(f.ActiveControl(), &l);
        const auto& nomes = l.Itens;
        EXPECT_TRUE(std::is_sorted(nomes.begin(), nomes.end())) << "ordered by name";
        for (const auto& n : nomes)
            EXPECT_EQ(Largura(n), 55u);
        EXPECT_NE(std::find(nomes.begin(), nomes.end(), std::string(55, 'N')), nomes.end());
        EXPECT_EQ(std::count_if(nomes.begin(), nomes.end(),
                                [](auto& n) { return n.starts_with("Cesta de Natal"); }),
                  0)
            << "inactive groupings are not listed";
        auto ofertas =
            std::find_if(nomes.begin(), nomes.end(), [](auto& n) { return n.starts_with("Ofertas"); });
        ASSERT_NE(ofertas, nomes.end());
        l.ListIndex = static_cast<int>(ofertas - nomes.begin());
        EXPECT_EQ(l.ItemData[l.ListIndex], 7);
        f.Tecla(&l, tecla::Enter, 0);
    });
    TolvanF02 f;
    MostraModal(f);
    EXPECT_EQ(Troca().CodigoSelecionado, "7") << "a numeric code goes back as its decimal text";
    EXPECT_EQ(Troca().CodigoGravado, "007") << "and as stored, for the search that follows";
    EXPECT_FALSE(f.Carregada());

    const auto& ch = gravador->chamadas;
    ASSERT_GE(ch.size(), 3u);
    EXPECT_EQ(ch[0].Transacao, "OPEN") << "no PREPARE before the list query";
    EXPECT_EQ(ch[0].Cursor, 0);
    EXPECT_EQ(ch[0].Texto,
              "Select T1.codigo, T1.nome from tbmatag T1, TBMATEQ T2 where  T1.empresa = T2.empresa "
              "and t1.codequiv = t2.codequiv and   T1.empresa = 1 and T2.TIPO = 1 and t1.STTR = 0 "
              "group by T1.empresa, T1.codigo, T1.nome order by T1.empresa, T1.nome");
    EXPECT_EQ(ch[ch.size() - 2].Transacao, "CLOSE");
    EXPECT_EQ(ch[ch.size() - 2].Cursor, Troca().CursorLista);
    EXPECT_NE(Troca().CursorLista, 0);
    EXPECT_EQ(ch.back().Transacao, "COMMIT");

    janelas->AoMostrar("TolvanF02", [](Tela& t) {
        auto& f = static_cast<TolvanF02&>(t);
        auto& l = f.lstProdutosAgrupados;
        const auto escolar = std::find_if(l.Itens.begin(), l.Itens.end(),
                                          [](auto& n) { return n.starts_with("Kit escolar"); });
        ASSERT_NE(escolar, l.Itens.end());
        l.ListIndex = static_cast<int>(escolar - l.Itens.begin());
        l.DblClick();
    });
    TolvanF02 g;
    MostraModal(g);
    EXPECT_EQ(Troca().CodigoSelecionado, "ESCOLAR") << "a code with letters goes back as text";
    EXPECT_EQ(Troca().CodigoGravado, "ESCOLAR");

    janelas->AoMostrar("TolvanF02", [](Tela& t) { t.Tecla(t.ActiveControl(), tecla::Esc, 0); });
    MostraModal(g);
    EXPECT_EQ(Troca().CodigoSelecionado, "");
}

TEST_P(Consulta, ListaVaziaOuQueFalhaNaoQuebraODialogo) {
    Origem("V", "9");
    Troca().CodigoSelecionado = "velho";
    janelas->AoMostrar("TolvanF02", [](Tela& t) {
        auto& f = static_cast<TolvanF02&>(t);
        EXPECT_EQ(f.lstProdutosAgrupados.ListCount(), 0) << "no grouping has items in type 9";
        f.Tecla(&f.lstProdutosAgrupados, tecla::Enter, 0);
    });
    TolvanF02 f;
    MostraModal(f);
    EXPECT_EQ(Troca().CodigoSelecionado, "") << "Enter on an empty list is a cancel";
    EXPECT_TRUE(Mostradas().empty());

    Origem("V", "1 OR");
    MostraModal(f);
    ASSERT_EQ(Mostradas().size(), 1u);
    EXPECT_EQ(Mostradas()[0].Texto, "Erro na consulta da equivalência.");
    EXPECT_EQ(Mostradas()[0].Titulo, "AVISO");
    EXPECT_EQ(Mostradas()[0].Tipo, 16);
    EXPECT_EQ(janelas->Conta("Bipe"), 1u);
}

TEST_P(Consulta, InicioPorModoListaOsAgrupamentosComOsComandosDoModo) {
    Abre("V", [&](TolvanF01& f) {
        EXPECT_EQ(f.Caption, "[Atendimento ao Cliente]");
        EXPECT_EQ(f.mnuGeraDocumentos.Caption, "Gera Atendimento");
        EXPECT_TRUE(f.mnuGeraDocumentos.Visible && f.mnuGeraDocumentos.Enabled);
        EXPECT_FALSE(f.mnuCaptura.Visible || f.mnuArquivo.Visible || f.btnAlterar.Visible);
        EXPECT_EQ(f.Height, 7545);
        EXPECT_EQ(f.ActiveControl(), &f.cboPesquisa);
        EXPECT_FALSE(f.txtPesquisa.Enabled || f.bttPesquisa.Enabled);
        EXPECT_EQ(static_cast<Rotulo*>(f.Acha("lblPainel1"))->Caption, "Tecle <ESC> para Sair");
        const auto codigos = Codigos(f.MSFGAgrupamento);
        EXPECT_EQ(codigos.size(), 11u) << "one row per code, active only";
        EXPECT_TRUE(std::find(codigos.begin(), codigos.end(), "000112") == codigos.end());
        EXPECT_EQ(f.MSFGAgrupamento.TextMatrix(1, 2), "Ativo");
        EXPECT_EQ(f.GCon1.Rows(), 1) << "no items until a grouping is picked";
        EXPECT_EQ(f.GCon1.TextMatrix(0, 1), "Descrição");
    });
    std::vector<std::string> preparados;
    int aberturas = 0;
    for (const auto& c : gravador->chamadas) {
        if (c.Transacao == "PREPARE") preparados.push_back(c.Texto);
        aberturas += c.Transacao == "OPEN";
    }
    ASSERT_EQ(preparados.size(), 1u);
    EXPECT_EQ(aberturas, 1) << "start-up lists the groupings once";
    EXPECT_EQ(preparados.back(),
              "Select T1.Codigo, T1.DscItem, T1.StTr, T1.CodItem, T1.Nome  From TBMATAG T1  "
              "Where T1.Empresa = 1 and T1.STTR = '0' And  T1.Codigo >= '0' Group By T1.Codigo, "
              "T1.DscItem, T1.StTr, T1.CodItem, T1.Nome ");

    Abre("", [&](TolvanF01& f) {
        EXPECT_FALSE(f.mnuGeraDocumentos.Visible);
        const auto codigos = Codigos(f.MSFGAgrupamento);
        auto natal = std::find(codigos.begin(), codigos.end(), "000112");
        ASSERT_NE(natal, codigos.end());
        EXPECT_EQ(f.MSFGAgrupamento.TextMatrix(static_cast<int>(natal - codigos.begin()) + 1, 2), "Inativo");
        f.Tecla(&f.GCon1, tecla::Letra('G'), modificador::Ctrl);
        EXPECT_TRUE(f.Carregada()) << "no generate command in consultation";
    });
    EXPECT_TRUE(Mostradas().empty()) << "Ctrl+G did nothing";

    Abre("P", [&](TolvanF01& f) {
        EXPECT_EQ(f.Caption, "[Orderm de Produção]");
        EXPECT_TRUE(f.mnuCaptura.Visible);
        EXPECT_FALSE(f.mnuGeraDocumentos.Visible);
        EXPECT_TRUE(f.NoTopo);
    });
    EXPECT_EQ(janelas->Conta("NoTopo"), 1u);
}

// The listing takes a grouping's rows as they come, one after another: with
// enough groupings for the server to group by hashing, they must still come
// in code order, or a grouping shows twice.
TEST_P(Consulta, ListagemGrandeMostraCadaAgrupamentoUmaVezEmOrdem) {
    std::ostringstream sql;
    sql << "INSERT INTO TBMATAG (Empresa, Codigo, Nome, Item, CodItem, DscItem, CodEquiv, STTR) VALUES ";
    for (int i = 0; i < 1200; ++i) {
        const int g = 500 + (i * 7919) % 400; // scattered, 3 items each
        sql << (i ? ", " : "") << "(1, '" << g << "', 'Carga " << g << "', " << i + 1 << ", '" << 1001 + i % 63
            << "', 'Produto " << i << "', 'x', 0)";
    }
    db->Direto(sql.str());
    db->Direto(db->kind() == Kind::Sqlite ? "ANALYZE" : "ANALYZE TBMATAG");
    Abre("V", [&](TolvanF01& f) {
        const auto codigos = Codigos(f.MSFGAgrupamento);
        EXPECT_EQ(codigos.size(), 11u + 400u);
        EXPECT_TRUE(std::is_sorted(codigos.begin(), codigos.end()));
        EXPECT_EQ(std::adjacent_find(codigos.begin(), codigos.end()), codigos.end());
    });
}

TEST_P(Consulta, BuscaPorCodigoEPorNomeCarregaOsItensComAsMarcasDaOrigem) {
    Abre("V", [&](TolvanF01& f) {
        Busca(f, 1, "cesta02");
        EXPECT_EQ(f.LNome.Caption, "Inexistente") << "codes compare as typed";
        ASSERT_EQ(Mostradas().size(), 1u);
        EXPECT_EQ(Mostradas()[0].Texto, "Agrupamento Inexistente");

        gravador->consultas.clear();
        Busca(f, 1, "  000102 ");
        EXPECT_EQ(Apara(f.LNome.Caption), "Cesta básica econômica");
        ASSERT_EQ(f.MSFGAgrupamento.Rows(), 2);
        EXPECT_EQ(f.MSFGAgrupamento.TextMatrix(1, 0), TextoFixo("000102", 20)) << "code kept at its width";
        EXPECT_EQ(f.MSFGAgrupamento.Row(), 1);
        // The grouping, its items, and its products' stock for the availability line.
        ASSERT_EQ(gravador->consultas.size(), 3u);
        EXPECT_EQ(gravador->consultas[0],
                  "SELECT DISTINCT T1.CODIGO, T1.NOME, T1.STTR  FROM TBMATAG T1 WHERE "
                  "T1.EMPRESA = '1' AND T1.CODIGO = '000102' AND T1.STTR = '0'");
        EXPECT_EQ(
            gravador->consultas[1],
            "SELECT DISTINCT ISNULL(T2.DscItem,'PRODUTO NÃO CADASTRADO PARA ESTA EMPRESA') AS DscItem ,  "
            "ISNULL(T3.DISPON, '0') AS DISPON,  T1.RAZFORNEC , T1.QTD, T1.VALOR, ISNULL(T2.Embal, '') AS "
            "Embal,  ISNULL(T2.CodItem, '') AS CodItem,  ISNULL(T3.CODREF , '') AS CODREF,  "
            "ISNULL(T3.CODEQUIV, '') AS CODEQUIV,  ISNULL(T1.TIPO, '') AS TIPO FROM TBMATAG T1 LEFT JOIN "
            "TBMAT T2 ON (T1.EMPRESA = T2.EMPRESA AND T1.CODITEM = T2.CODITEM) LEFT JOIN TBMATEQ T3 ON "
            "(T1.EMPRESA = T3.EMPRESA AND T1.CODITEM = T3.CODITEM AND T1.CODEQUIV = T3.CODEQUIV AND "
            "T3.TIPO = 1) WHERE T1.EMPRESA  = 1 AND T1.CODIGO = '000102' AND T1.EMPRESA = '1'");
        EXPECT_EQ(gravador->consultas[2].rfind("SELECT T2.CODITEM, T2.QTDITATU, T2.QTDITBLOQ FROM TBMAT T2", 0), 0u);
        const Grade& g = f.GCon1;
        ASSERT_EQ(g.Rows(), 8);
        EXPECT_EQ(f.ActiveControl(), &f.GCon1);
        int semProduto = 0;
        for (int r = 1; r < g.Rows(); ++r) {
            EXPECT_EQ(g.TextMatrix(r, 0), "*") << "sales orders start with every item marked";
            if (g.TextMatrix(r, 1) == "PRODUTO NÃO CADASTRADO PARA ESTA EMPRESA") {
                semProduto = r;
                EXPECT_EQ(Apara(g.TextMatrix(r, 7)), "");
            } else {
                EXPECT_EQ(g.TextMatrix(r, 2), "Ativo");
                EXPECT_EQ(Largura(g.TextMatrix(r, 8)), 20u);
                EXPECT_TRUE(g.TextMatrix(r, 5).starts_with("R$ ")) << g.TextMatrix(r, 5);
            }
        }
        ASSERT_GT(semProduto, 0);
        EXPECT_EQ(Troca().CodEquivItens.size(), 8u);
        EXPECT_EQ(Troca().CodEquivItens.back(), "");

        // Marks: F6 clears, F7 respects the packaging rule, F5 marks all.
        f.Tecla(&f.GCon1, tecla::F6, 0);
        f.GCon1.Seleciona(semProduto, 3);
        f.Tecla(&f.GCon1, tecla::F7, 0);
        EXPECT_EQ(g.TextMatrix(semProduto, 0), "") << "no packaging: not marked this way";
        f.GCon1.Seleciona(2, 3);
        f.Tecla(&f.GCon1, tecla::F7, 0);
        EXPECT_EQ(g.TextMatrix(2, 0), "*");
        EXPECT_EQ(g.Row(), 1) << "the totals move back to row 1";
        f.Tecla(&f.GCon1, tecla::F5, 0);
        EXPECT_EQ(g.TextMatrix(semProduto, 0), "*");

        Mostradas();
        db->mensagens->Limpa();
        Busca(f, 2, "BÁSICA");
        EXPECT_EQ(Codigos(f.MSFGAgrupamento), (std::vector<std::string>{"000101", "000102"}))
            << "names match in any case, accents included, ordered by code";
        EXPECT_TRUE(Mostradas().empty());
    });
    Abre("C", [&](TolvanF01& f) {
        Busca(f, 1, "000101");
        ASSERT_GT(f.GCon1.Rows(), 1);
        for (int r = 1; r < f.GCon1.Rows(); ++r)
            EXPECT_EQ(f.GCon1.TextMatrix(r, 0), "") << "other origins start unmarked";
    });
}

// The name beside the grid, the items under it and the totals line always
// speak of the same grouping.
TEST_P(Consulta, NomeItensETotaisSaoDoAgrupamentoMostrado) {
    db->Direto("UPDATE TBMATAG SET TIPO = NULL WHERE EMPRESA = 1 AND CODIGO = '000104' AND ITEM = 1");
    AcoesConsulta acoes;
    // Maintenance saves a new name into the selected row, as its screen does.
    acoes.Manutencao = [&](TolvanF01& f, const std::string&, bool) {
        f.MSFGAgrupamento.DefineTextMatrix(f.MSFGAgrupamento.Row(), 1, "Kit escolar renomeado");
        f.MSFGAgrupamento.DefineTextMatrix(f.MSFGAgrupamento.Row(), 2, "Inativo");
    };
    DefineAcoesConsulta(acoes);
    Abre("", [&](TolvanF01& f) {
        Busca(f, 2, "kit");
        ASSERT_GT(f.MSFGAgrupamento.Rows(), 3) << "several groupings found";
        EXPECT_EQ(Codigos(f.MSFGAgrupamento)[0], "000103");
        EXPECT_EQ(f.LNome.Caption, "Kit limpeza da casa") << "the first found, whose items are shown";
        EXPECT_EQ(f.GCon1.Rows(), 8);
        EXPECT_EQ(f.LTotais.Caption, "0 de 7 itens marcados, total R$ 0,00");

        f.MSFGAgrupamento.Seleciona(2, 0);
        EXPECT_EQ(f.LNome.Caption, "Kit escolar ensino fundamental") << "a moved selection names its grouping";
        ASSERT_EQ(f.GCon1.Rows(), 12) << "a NULL price type loads like any other";
        int tipoZero = 0;
        for (int r = 1; r < f.GCon1.Rows(); ++r)
            tipoZero += f.GCon1.TextMatrix(r, 11) == "0";
        EXPECT_EQ(tipoZero, 1) << "NULL reads as 0";

        f.MSFGAgrupamento.DblClick();
        EXPECT_EQ(f.LNome.Caption, "Kit escolar renomeado") << "back from maintenance: the saved name";
        EXPECT_EQ(f.GCon1.Rows(), 12);
    });
    for (const auto& m : Mostradas())
        EXPECT_NE(m.Tipo, 16) << m.Texto;

    Abre("V", [&](TolvanF01& f) {
        Busca(f, 1, "000101");
        // 13 items at their grouping prices, all marked on a sales order.
        EXPECT_EQ(f.LTotais.Caption, "13 de 13 itens marcados, total R$ 180,78");
        f.Tecla(&f.GCon1, tecla::F6, 0);
        EXPECT_EQ(f.LTotais.Caption, "0 de 13 itens marcados, total R$ 0,00");
        f.GCon1.Seleciona(1, 1);
        f.Tecla(&f.GCon1, tecla::F7, 0);
        EXPECT_EQ(f.LTotais.Caption, "1 de 13 itens marcados, total " + f.GCon1.TextMatrix(1, 6));
        f.Tecla(&f.GCon1, tecla::F11, 0);
        EXPECT_EQ(f.LTotais.Caption, "");
        EXPECT_EQ(f.LNome.Caption, "");
    });
}

TEST_P(Consulta, CapturaSoDevolveCodigoNumerico) {
    db->Direto("UPDATE TBMATAG SET CODIGO = 'ESCOLAR' WHERE EMPRESA = 1 AND CODIGO = '000104'");
    Abre("P", [&](TolvanF01& f) {
        EXPECT_FALSE(f.MSFGAgrupamento.ToolTipText.empty()) << "the grid says how to capture";
        const std::vector<std::string> codigos = Codigos(f.MSFGAgrupamento);
        const auto escolar = std::find(codigos.begin(), codigos.end(), "ESCOLAR");
        ASSERT_NE(escolar, codigos.end());
        f.MSFGAgrupamento.Seleciona(static_cast<int>(escolar - codigos.begin()) + 1, 0);
        f.Tecla(&f.MSFGAgrupamento, tecla::Letra('C'), modificador::Ctrl);
        EXPECT_TRUE(f.Carregada()) << "a code with letters is not handed back";
        f.MSFGAgrupamento.DblClick();
        EXPECT_TRUE(f.Carregada());
        ASSERT_EQ(Mostradas().size(), 2u);
        EXPECT_NE(Mostradas()[0].Texto.find("ESCOLAR não é numérico"), std::string::npos) << Mostradas()[0].Texto;
        EXPECT_NE(Mostradas()[0].Texto.find("<CTRL+C>"), std::string::npos);
        EXPECT_EQ(Mostradas()[0].Tipo, 64);
        f.MSFGAgrupamento.Seleciona(1, 0);
        f.Tecla(&f.MSFGAgrupamento, tecla::Letra('C'), modificador::Ctrl);
        EXPECT_FALSE(f.Carregada());
    });
    int32_t codigo = -1;
    EXPECT_TRUE(LeInteiro32(SessaoAtual().DadosRetorno, codigo));
    EXPECT_EQ(codigo, 101);
}

TEST_P(Consulta, TextoDoOperadorNaoMudaOComando) {
    db->Direto("UPDATE TBMATAG SET NOME = 'Kit d''agua' WHERE EMPRESA = 1 AND CODIGO = '000110'");
    Abre("", [&](TolvanF01& f) {
        Busca(f, 2, "d'AGUA");
        EXPECT_EQ(Codigos(f.MSFGAgrupamento), std::vector<std::string>{"000110"});
        Busca(f, 1, "x' OR '1'='1");
        EXPECT_EQ(f.MSFGAgrupamento.Rows(), 1);
        EXPECT_EQ(f.LNome.Caption, "Inexistente");
        Busca(f, 2, std::string(300, '%'));
        EXPECT_TRUE(f.Carregada());
    });
    EXPECT_EQ(CDbl(Um("SELECT COUNT(*) FROM TBMATAG WHERE EMPRESA = 1")) > 0, true);
    for (const auto& m : Mostradas())
        EXPECT_NE(m.Tipo, 16) << m.Texto;
}

TEST_P(Consulta, TeclasSaidasECaptura) {
    Abre("P", [&](TolvanF01& f) {
        EXPECT_FALSE(f.PedeFechamento()) << "the close box does not close the screen";
        f.MSFGAgrupamento.Seleciona(2, 0);
        EXPECT_GT(f.GCon1.Rows(), 1) << "a new selection loads its items";
        f.Tecla(&f.MSFGAgrupamento, tecla::Letra('C'), modificador::Ctrl | modificador::Shift);
        EXPECT_TRUE(f.Carregada());
        f.Tecla(&f.MSFGAgrupamento, tecla::F3, modificador::Shift);
        EXPECT_GT(f.MSFGAgrupamento.Rows(), 2) << "Shift+F3 does not search";
        f.Tecla(&f.MSFGAgrupamento, tecla::Letra('C'), modificador::Ctrl);
    });
    const std::string capturado = CStr(SessaoAtual().DadosRetorno);
    EXPECT_EQ(Largura(capturado), 20u) << "Ctrl+C hands the code back as shown";
    EXPECT_FALSE(Apara(capturado).empty());

    Abre("P", [&](TolvanF01& f) {
        f.MSFGAgrupamento.Seleciona(1, 0);
        f.MSFGAgrupamento.DblClick();
    });
    EXPECT_EQ(CStr(SessaoAtual().DadosRetorno), Apara(CStr(SessaoAtual().DadosRetorno)))
        << "a double click hands it back trimmed";

    Abre("V", [&](TolvanF01& f) { f.Tecla(&f.txtPesquisa, tecla::Esc, modificador::Alt); });
    EXPECT_EQ(SessaoAtual().DadosRetorno, Valor("0"));
}

TEST_P(Consulta, QuantidadeAlteradaPeloDialogoEComandosDasCamadasSeguintes) {
    int geracoes = 0;
    Abre("D", [&](TolvanF01& f) {
        Busca(f, 1, "000101");
        f.GCon1.Seleciona(2, 1);
        janelas->AoMostrar("TolvanF03", [](Tela& t) {
            auto& d = static_cast<TolvanF03&>(t);
            d.TQtd.Digita("3");
            d.BTOk_Click();
        });
        const std::string preco = f.GCon1.TextMatrix(2, 5);
        f.Tecla(&f.GCon1, tecla::F8, 0);
        EXPECT_EQ(f.GCon1.TextMatrix(2, 4), "3");
        const double unit = ValRegional(preco);
        EXPECT_EQ(f.GCon1.TextMatrix(2, 5), Formata(unit, "###0.00"));
        EXPECT_EQ(f.GCon1.TextMatrix(2, 6), Formata(unit * 3, "###0.00"));
        EXPECT_EQ(f.GCon1.Col(), 0);

        f.Tecla(&f.GCon1, tecla::Letra('G'), modificador::Ctrl);
        EXPECT_EQ(Mostradas().back().Titulo, "AVISO") << "nothing installed yet: said so";
        DefineAcoesConsulta({[&](TolvanF01&) { ++geracoes; }, nullptr, nullptr});
        f.Tecla(&f.GCon1, tecla::Letra('G'), modificador::Ctrl | modificador::Shift);
        f.Tecla(&f.GCon1, tecla::Letra('G'), modificador::Ctrl);
    });
    EXPECT_EQ(geracoes, 1) << "Ctrl+G generates once, Ctrl+Shift+G never";
}

TEST_P(Consulta, VisualizarListaLevaAoAgrupamentoEscolhido) {
    Abre("V", [&](TolvanF01& f) {
        EscolheNaLista(*janelas, "Kit limpeza");
        f.Tecla(&f.cboPesquisa, tecla::F2, 0);
        EXPECT_EQ(Codigos(f.MSFGAgrupamento), std::vector<std::string>{"000103"});
        EXPECT_EQ(f.GCon1.Rows(), 8);
        f.Tecla(&f.GCon1, tecla::F11, 0);
        EXPECT_EQ(f.GCon1.Rows(), 1);
        EXPECT_EQ(f.txtPesquisa.Text, "");
        EXPECT_EQ(f.ActiveControl(), &f.txtPesquisa);
    });
}

ZTOLVAN_NOS_DOIS_BANCOS(Consulta);

} // namespace
