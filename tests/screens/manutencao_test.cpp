// Grouping maintenance opened from the consultation screen by a double
// click, on the demo data of both databases: the price-type check, the
// question, what is written on every row and what goes back to the grid.
#include <gtest/gtest.h>

#include "common/conversao.h"
#include "common/portas.h"
#include "common/texto.h"
#include "entry/sessao.h"
#include "screens/auxiliary/tolvanf08.h"
#include "screens/demo_telas.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/janelas.h"
#include "screens/teclas.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class Manutencao : public TelasNoDemo<> {
  protected:
    void SetUp() override {
        TelasNoDemo::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        PortasAtuais().mensagens = mensagens;
        InstalaManutencao();
        Origem("");
    }
    // Searches the grouping on the consultation screen, double-clicks it and
    // lets the operator act on the maintenance screen; 'depois' looks at the
    // consultation screen once maintenance closed.
    void Mantem(const std::string& codigo, std::function<void(TolvanF08&)> acao,
                std::function<void(TolvanF01&)> depois = {}) {
        Abre("", [&](TolvanF01& f) {
            Busca(f, 1, codigo);
            janelas->AoMostrar("TolvanF08", [&](Tela& m) { acao(static_cast<TolvanF08&>(m)); });
            f.MSFGAgrupamento.DblClick();
            if (depois) depois(f);
        });
    }
    int Linhas(const std::string& onde) {
        return static_cast<int>(CDbl(Um("SELECT COUNT(*) FROM TBMATAG WHERE EMPRESA = 1 AND " + onde)));
    }

    std::shared_ptr<MensagensGravadas> mensagens = std::make_shared<MensagensGravadas>();
};

TEST_P(Manutencao, TipoSemPrecoParaTodosOsItensRecusadoComOsItensNoDetalhe) {
    db->Direto("DELETE FROM TBMATEQ WHERE EMPRESA = 1 AND TIPO = 2 AND CODITEM = '1037'");
    Mantem("000104", [&](TolvanF08& m) {
        EXPECT_EQ(m.TxNome.Text, "Kit escolar ensino fundamental");
        EXPECT_EQ(m.cbTipo.Itens, (std::vector<std::string>{"1", "2", "3"}));
        EXPECT_EQ(m.cbTipo.Text(), "1");
        EXPECT_FALSE(m.TxCodigo.Enabled || m.BtListaItem.Enabled);
        EXPECT_FALSE(m.BtListaItem.ToolTipText.empty());
        m.cbTipo.Seleciona(1);
        m.bttIncluir.Click();
        EXPECT_TRUE(m.Carregada()) << "refused: the screen stays open";
        EXPECT_EQ(m.cbTipo.Text(), "1") << "the type goes back to the grouping's";

        // Cleared fields leave no code to save: reported, nothing written.
        m.bttLimpar.Click();
        EXPECT_EQ(m.TxNome.Text, " ");
        EXPECT_EQ(m.cbTipo.Text(), "1");
        m.bttIncluir.Click();
        EXPECT_TRUE(m.Carregada());
        m.Tecla(nullptr, tecla::Esc, 0);
        EXPECT_FALSE(m.Carregada());
    });
    ASSERT_EQ(mensagens->Mostradas().size(), 2u);
    const auto& recusa = mensagens->Mostradas()[0];
    EXPECT_EQ(recusa.Texto, "Não existe Tipo 2 para todos os itens nesse agrupamento.");
    EXPECT_TRUE(recusa.Tipo == 16 && recusa.Titulo == "AVISO");
    EXPECT_EQ(
        mensagens->Mostradas()[0].Detalhe,
        "Itens sem preço neste tipo:\n7891234103700 - Lápis preto nº 2\n7891234104500 - Mochila escolar");
    EXPECT_EQ(mensagens->Mostradas()[1].Texto, "Atenção! erro não previsto na função - bttIncluir_Click");
    EXPECT_EQ(Linhas("CODIGO = '000104' AND (TIPO <> 1 OR NOME <> 'Kit escolar ensino fundamental')"), 0);
    const auto p = Palavras();
    EXPECT_EQ(std::count(p.begin(), p.end(), "EXECUTE"), 0);
    const auto& c = gravador->consultas;
    for (const char* sql :
         {"SELECT NOME, STTR, OBSERVACAO, TIPO FROM TBMATAG WHERE CODIGO ='000104' AND EMPRESA ='1'",
          "SELECT TIPO,  (SELECT COUNT(TIPO) FROM TBMATTP) AS QUANTIDADE  FROM TBMATTP ORDER BY TIPO"})
        EXPECT_EQ(std::count(c.begin(), c.end(), sql), 1) << sql;
}

// A save that keeps the type is never refused for prices: 000102 holds a
// product with no equivalence at all, and a type-2 grouping's items have
// prices in type 2 only while the session shows type 1. A change of type
// counts the items' own equivalence codes, not the item grid's.
TEST_P(Manutencao, TipoMantidoNuncaRecusadoETrocaContaOsCodigosDosItens) {
    Mantem("000102", [&](TolvanF08& m) {
        m.TxNome.Text = "Cesta econômica";
        m.bttIncluir.Click();
        EXPECT_FALSE(m.Carregada());
    });
    EXPECT_TRUE(mensagens->Mostradas().empty()) << mensagens->Mostradas().front().Texto;
    EXPECT_EQ(Linhas("CODIGO = '000102' AND NOME <> 'Cesta econômica'"), 0);

    db->Direto("INSERT INTO TBMATEQ (EMPRESA, CODEQUIV, TIPO, CODITEM, VALOR, DSCITEM) VALUES "
               "(1, 'SO-T2-A', 2, '1001', 5, 'ARROZ'), (1, 'SO-T2-B', 2, '1002', 6, 'FEIJAO')");
    db->Direto("INSERT INTO TBMATAG (EMPRESA, CODIGO, NOME, ITEM, CODITEM, CODEQUIV, DSCITEM, QTD, STTR, TIPO) "
               "VALUES (1, '000199', 'So tipo dois', 1, '1001', 'SO-T2-A', 'Arroz', 1, 0, 2), "
               "(1, '000199', 'So tipo dois', 2, '1002', 'SO-T2-B', 'Feijao', 1, 0, 2), "
               "(1, '000198', 'Muda de tipo', 1, '1002', 'SO-T2-B', 'Feijao', 1, 0, 1)");
    Mantem("000199", [&](TolvanF08& m) {
        EXPECT_EQ(m.cbTipo.Text(), "2");
        m.CmbSituacao.Seleciona(1);
        m.bttIncluir.Click();
        EXPECT_FALSE(m.Carregada());
    });
    EXPECT_TRUE(mensagens->Mostradas().empty()) << mensagens->Mostradas().front().Texto;
    EXPECT_EQ(Linhas("CODIGO = '000199' AND STTR = 1 AND TIPO = 2"), 2);

    // To type 1, where neither has a price: refused, both named.
    Mantem("000199", [&](TolvanF08& m) {
        m.cbTipo.Seleciona(0);
        m.bttIncluir.Click();
        EXPECT_TRUE(m.Carregada());
        m.Tecla(nullptr, tecla::Esc, 0);
    });
    ASSERT_EQ(mensagens->Mostradas().size(), 1u);
    EXPECT_EQ(mensagens->Mostradas()[0].Texto, "Não existe Tipo 1 para todos os itens nesse agrupamento.");
    EXPECT_EQ(mensagens->Mostradas().back().Detalhe, "Itens sem preço neste tipo:\nSO-T2-A - Arroz\nSO-T2-B - Feijao");

    // A type-1 grouping whose item is priced in type 2 only moves to type 2.
    mensagens->Responde(msg::RespostaOK);
    Mantem("000198", [&](TolvanF08& m) {
        m.cbTipo.Seleciona(1);
        m.bttIncluir.Click();
        EXPECT_FALSE(m.Carregada());
    });
    EXPECT_EQ(mensagens->Mostradas().back().Texto, "Tipo de Preço do Agrupamento será alterado para todos os itens.");
    EXPECT_EQ(Linhas("CODIGO = '000198' AND TIPO = 2"), 1);
}

TEST_P(Manutencao, TrocaDeTipoPerguntadaCanceladaEDepoisGravadaEmTodasAsLinhas) {
    Mantem(
        "000103",
        [&](TolvanF08& m) {
            m.TxNome.Text = "Kit limpeza renovado";
            m.cbTipo.Seleciona(1);
            mensagens->Responde(msg::RespostaCancelar);
            m.bttIncluir.Click();
            EXPECT_TRUE(m.Carregada());
            EXPECT_EQ(m.cbTipo.Text(), "1");
            EXPECT_EQ(Linhas("CODIGO = '000103' AND TIPO = 2"), 0) << "cancelled: nothing written";
            m.cbTipo.Seleciona(1);
            mensagens->Responde(msg::RespostaOK);
            m.bttIncluir.Click();
            EXPECT_FALSE(m.Carregada());
        },
        [&](TolvanF01& f) {
            EXPECT_EQ(f.MSFGAgrupamento.TextMatrix(1, 1), "Kit limpeza renovado");
            EXPECT_EQ(f.MSFGAgrupamento.TextMatrix(1, 2), "Ativo");
            ASSERT_EQ(f.GCon1.Rows(), 8) << "the items are loaded again";
            EXPECT_EQ(f.GCon1.TextMatrix(1, TolvanF01::ColTipo), "2");
        });
    ASSERT_EQ(mensagens->Mostradas().size(), 2u);
    for (const auto& m : mensagens->Mostradas()) {
        EXPECT_EQ(m.Texto, "Tipo de Preço do Agrupamento será alterado para todos os itens.");
        EXPECT_EQ(m.Tipo, 1);
        EXPECT_EQ(m.Titulo, "Agrupamento");
    }
    EXPECT_EQ(Linhas("CODIGO = '000103' AND TIPO = 2 AND NOME = 'Kit limpeza renovado'"), 7);
    EXPECT_EQ(Linhas("CODIGO = '000103'"), 7);
    const auto p = Palavras();
    auto execute = std::find(p.begin(), p.end(), "EXECUTE");
    ASSERT_NE(execute, p.end());
    EXPECT_EQ(*(execute + 1), "COMMIT");
}

TEST_P(Manutencao, InativoENomesLongosCortadosSemPerguntaQuandoOTipoNaoMuda) {
    std::string nome, observacao;
    for (int i = 0; i < 120; ++i)
        nome += "Ç";
    for (int i = 0; i < 35; ++i)
        observacao += "observação";
    Mantem(
        "000101",
        [&](TolvanF08& m) {
            m.CmbSituacao.Seleciona(1);
            m.TxNome.Text = nome;
            m.txtObservacao.Text = observacao;
            m.bttIncluir.Click();
            EXPECT_FALSE(m.Carregada());
        },
        [&](TolvanF01& f) {
            EXPECT_EQ(f.MSFGAgrupamento.TextMatrix(1, 2), "Inativo");
            EXPECT_EQ(f.MSFGAgrupamento.TextMatrix(1, 1), Esquerda(nome, 100));
        });
    EXPECT_TRUE(mensagens->Mostradas().empty()) << "the type did not change: nothing asked";
    EXPECT_EQ(Linhas("CODIGO = '000101' AND STTR = 1"), 13);
    EXPECT_EQ(Linhas("CODIGO = '000101'"), 13);
    EXPECT_EQ(AparaDireita(CStr(Um("SELECT NOME FROM TBMATAG WHERE CODIGO = '000101' AND ITEM = 5"))),
              Esquerda(nome, 100));
    EXPECT_EQ(AparaDireita(CStr(Um("SELECT OBSERVACAO FROM TBMATAG WHERE CODIGO = '000101' AND ITEM = 13"))),
              Esquerda(observacao, 300));
}

TEST_P(Manutencao, AtualizacaoRecusadaNaoDeixaNadaPendenteEFecha) {
    if (db->kind() == Kind::Sqlite) {
        db->Direto(
            "CREATE TRIGGER recusa BEFORE UPDATE ON TBMATAG BEGIN SELECT RAISE(ABORT, 'bloqueado'); END");
    } else {
        db->Direto("CREATE FUNCTION recusa() RETURNS trigger LANGUAGE plpgsql AS "
                   "$$ BEGIN RAISE EXCEPTION 'bloqueado'; END $$");
        db->Direto("CREATE TRIGGER recusa BEFORE UPDATE ON TBMATAG FOR EACH ROW EXECUTE FUNCTION recusa()");
    }
    Mantem("000106", [&](TolvanF08& m) {
        m.TxNome.Text = "Outro nome";
        m.bttIncluir.Click();
        EXPECT_FALSE(m.Carregada()) << "an update error closes the screen";
    });
    ASSERT_EQ(mensagens->Mostradas().size(), 1u);
    EXPECT_EQ(mensagens->Mostradas()[0].Texto, "Atenção! erro na atualização do agrupamento.");
    EXPECT_NE(mensagens->Mostradas()[0].Detalhe.find("bloqueado"), std::string::npos) << mensagens->Mostradas()[0].Detalhe;
    const auto p = Palavras();
    auto execute = std::find(p.begin(), p.end(), "EXECUTE");
    ASSERT_NE(execute, p.end());
    EXPECT_EQ(*(execute + 1), "ROLLBACK");
    EXPECT_EQ(Linhas("CODIGO = '000106' AND NOME = 'Kit higiene pessoal'"), 8);
}

// Without the price types the list stays empty with its own report, and a
// save has no type to write: reported, nothing written.
TEST_P(Manutencao, ListaDeTiposQueNaoCarregaDeixaAListaVaziaENaoGrava) {
    db->Direto("DROP TABLE TBMATTP");
    Mantem("000108", [&](TolvanF08& m) {
        EXPECT_EQ(m.TxNome.Text, "Kit lanche escolar");
        EXPECT_TRUE(m.cbTipo.Itens.empty());
        m.TxNome.Text = "Outro nome";
        m.bttIncluir.Click();
        EXPECT_TRUE(m.Carregada());
    });
    ASSERT_EQ(mensagens->Mostradas().size(), 2u);
    EXPECT_EQ(mensagens->Mostradas()[0].Texto.rfind("Erro na função(sbPreecheComboTipoMat) LINHA: ", 0), 0u)
        << mensagens->Mostradas()[0].Texto;
    EXPECT_EQ(mensagens->Mostradas()[1].Texto, "Atenção! erro não previsto na função - bttIncluir_Click");
    EXPECT_EQ(Linhas("CODIGO = '000108' AND NOME = 'Kit lanche escolar'"), 5);
}

ZTOLVAN_NOS_DOIS_BANCOS(Manutencao);

} // namespace
