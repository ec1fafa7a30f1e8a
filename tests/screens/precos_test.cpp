// The point of sale's price consultation on the demo data of both
// databases: the sales-data text byte for byte, the refusals, the list, the
// keys and the ways out.
#include <gtest/gtest.h>

#include "common/conversao.h"
#include "common/portas.h"
#include "common/texto.h"
#include "data/modules/modulos_teste.h"
#include "screens/demo_telas.h"
#include "screens/tela_teste.h"
#include "entry/sessao.h"
#include "screens/auxiliary/tolvanf02.h"
#include "screens/auxiliary/tolvanf07.h"
#include "screens/janelas.h"
#include "screens/teclas.h"
#include "screens/troca.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

// Lets pending events run by delivering one more key, as an impatient
// operator's second Esc arrives while the first is still closing.
class JanelasComTeclaPendente : public JanelasModelo {
  public:
    void ProcessaEventos() override {
        JanelasModelo::ProcessaEventos();
        if (Tela* t = pendente) {
            pendente = nullptr;
            t->Tecla(t->ActiveControl(), tecla::Esc, 0);
        }
    }
    Tela* pendente = nullptr;
};

class Precos : public TelasNoDemo<JanelasComTeclaPendente> {
  protected:
    void SetUp() override {
        TelasNoDemo::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        // CESTA BASICA: two items in price type 1 (the second at half a unit)
        // and a third only in type 2, which type 1 never shows.
        db->Direto(
            "INSERT INTO TBMATAG (EMPRESA, CODIGO, NOME, ITEM, CODITEM, CODEQUIV, QTD, STTR, TIPO) VALUES "
            "(1, 'PDV01', 'CESTA BASICA', 1, '2001', 'E2001', 1, 0, 1), "
            "(1, 'PDV01', 'CESTA BASICA', 2, '2002', 'E2002', 0.5, 0, 1), "
            "(1, 'PDV01', 'CESTA BASICA', 3, '2003', 'E2003', 1, 0, 1)");
        db->Direto("INSERT INTO TBMATEQ (EMPRESA, CODEQUIV, TIPO, CODITEM, VALOR, DSCITEM) VALUES "
                   "(1, 'E2001', 1, '2001', 10, 'ARROZ TIPO 1'), "
                   "(1, 'E2002', 1, '2002', 1234.5, 'FEIJAO CARIOCA'), "
                   "(1, 'E2003', 2, '2003', 7, 'SAL')");
        Origem("F").StatusRet = 1;
        gravador->chamadas.clear();
    }
    // Opens the screen once; the operator does 'acao'.
    void Abre(std::function<void(TolvanF07&)> acao) {
        janelas->AoMostrar("TolvanF07", [acao](Tela& t) { acao(static_cast<TolvanF07&>(t)); });
        MostraModal(tela);
    }
    // Code, Enter, quantity, OK.
    void Vende(const std::string& codigo, const std::string& qtd) {
        Abre([&](TolvanF07& f) {
            f.TCodigo.Digita(codigo);
            f.Tecla(&f.TCodigo, tecla::Enter, 0);
            f.TxQtdGera.Digita(qtd);
            f.BTOk.Click();
        });
    }
    std::string Retorno() { return CStr(SessaoAtual().DadosRetorno); }

    TolvanF07 tela;
};

std::string Linha(const std::string& item, const std::string& equiv, const std::string& qtd,
                  const std::string& dsc, const std::string& preco) {
    return TextoFixo(item, 20) + "|" + TextoFixo(equiv, 20) + "|" + qtd + "|" + dsc + "|" + preco + "\u00BB";
}

TEST_P(Precos, DadosDeVendaByteAByteComESemONomeDoAgrupamento) {
    Ajuste("Descricao Agrupamento Produto", "NAO");
    Abre([&](TolvanF07& f) {
        EXPECT_EQ(f.TxQtdGera.Text, "1");
        EXPECT_EQ(f.ActiveControl(), &f.TCodigo);
        f.TCodigo.Digita("PDV01");
        f.Tecla(&f.TCodigo, tecla::Enter, 0);
        EXPECT_EQ(f.LNome.Caption, "CESTA BASICA");
        EXPECT_EQ(f.ActiveControl(), &f.TxQtdGera) << "Enter moves on to the quantity";
        f.TxQtdGera.Digita("2");
        f.Tecla(&f.TxQtdGera, tecla::Enter, 0);
        EXPECT_EQ(f.ActiveControl(), &f.BTOk);
        f.BTOk.Click();
        EXPECT_FALSE(f.Carregada()) << "OK closes the screen";
    });
    EXPECT_EQ(Retorno(), Linha("2001", "E2001", "2", TextoFixo("ARROZ TIPO 1", 60), "10") +
                             Linha("2002", "E2002", "1", TextoFixo("FEIJAO CARIOCA", 60), "1234,5"));
    EXPECT_EQ(SessaoAtual().StatusRet, 0);
    EXPECT_EQ(Palavras().back(), "COMMIT");
    EXPECT_TRUE(Mostradas().empty());

    Ajuste("Descricao Agrupamento Produto", "sim");
    Ajuste("Qtd Posicoes Agrupamento", "5");
    SessaoAtual().StatusRet = 1;
    Vende("PDV01", "3");
    EXPECT_EQ(Retorno(),
              Linha("2001", "E2001", "3", "[CESTA] " + TextoFixo("ARROZ TIPO 1", 60), "10") +
                  Linha("2002", "E2002", "1,5", "[CESTA] " + TextoFixo("FEIJAO CARIOCA", 60), "1234,5"))
        << "the decimal quantity and price carry the regional comma and no thousands separator";
    EXPECT_EQ(SessaoAtual().StatusRet, 0);
}

// The name prefix is always the name of the grouping whose items go out:
// OK without Enter, and OK after Enter on one code and an edit to another.
// A line whose price cannot be worked out hands nothing back, however the
// screen is then left.
TEST_P(Precos, OkVendeOCodigoDoCampoComONomeDeleEPrecoQueFalhaNaoDevolveNada) {
    Ajuste("Descricao Agrupamento Produto", "SIM");
    Ajuste("Qtd Posicoes Agrupamento", "5");
    const std::string esperado = Linha("2001", "E2001", "1", "[CESTA] " + TextoFixo("ARROZ TIPO 1", 60), "10") +
                                 Linha("2002", "E2002", "0,5", "[CESTA] " + TextoFixo("FEIJAO CARIOCA", 60), "1234,5");
    Abre([&](TolvanF07& f) {
        f.TCodigo.Digita("PDV01");
        f.BTOk.Click();
        EXPECT_FALSE(f.Carregada());
    });
    EXPECT_EQ(Retorno(), esperado) << "OK without Enter";
    SessaoAtual().StatusRet = 1;
    Abre([&](TolvanF07& f) {
        f.TCodigo.Digita("000103");
        f.Tecla(&f.TCodigo, tecla::Enter, 0);
        EXPECT_EQ(f.LNome.Caption, "Kit limpeza da casa");
        f.TCodigo.Text = "PDV01";
        f.BTOk.Click();
        EXPECT_EQ(f.LNome.Caption, "CESTA BASICA");
    });
    EXPECT_EQ(Retorno(), esperado) << "OK after an edit";
    EXPECT_TRUE(Mostradas().empty()) << Textos().front();

    // Only the file database keeps an infinite value (the server's
    // "Infinity" reads as 0, not a number of the system's).
    if (GetParam() != Kind::Sqlite) return;
    db->Direto("UPDATE TBMATEQ SET VALOR = 9e999 WHERE CODEQUIV = 'E2002'");
    SessaoAtual().StatusRet = 1;
    Abre([&](TolvanF07& f) {
        f.TCodigo.Digita("PDV01");
        f.BTOk.Click();
        EXPECT_TRUE(f.Carregada()) << "the screen stays open";
        f.Tecla(&f.TCodigo, tecla::Esc, 0);
        EXPECT_FALSE(f.Carregada());
    });
    EXPECT_EQ(Retorno(), "") << "no line of the failed sale";
    EXPECT_EQ(SessaoAtual().StatusRet, 1);
    EXPECT_EQ(Mostradas().size(), 1u);
}

TEST_P(Precos, OkRecusaCodigoEQuantidadeEAgrupamentoInativoOuSemItens) {
    Abre([&](TolvanF07& f) {
        f.BTOk.Click();
        EXPECT_EQ(f.ActiveControl(), &f.TCodigo);
        for (const char* qtd : {"", "0", "abc"}) {
            f.TCodigo.Digita("PDV01");
            f.TxQtdGera.Text = qtd;
            f.BTOk.Click();
            EXPECT_EQ(f.ActiveControl(), &f.TxQtdGera) << qtd;
        }
        f.TCodigo.Digita(std::string(25, '9'));
        EXPECT_EQ(f.TCodigo.Text, std::string(20, '9')) << "the field takes 20 characters";
        f.TCodigo.Text = "PDV01" + std::string(20, 'X');
        f.TxQtdGera.Digita("1");
        f.BTOk.Click();
        f.Tecla(&f.TCodigo, tecla::Enter, 0);
        EXPECT_EQ(f.LNome.Caption, "Inexistente");
        EXPECT_TRUE(f.Carregada());
    });
    EXPECT_EQ(Textos(),
              (std::vector<std::string>{"O Código deve ser informado", "A quantidade deve ser informada",
                                        "A quantidade deve ser informada", "A quantidade deve ser informada",
                                        "O Código deve ter no máximo 20 caracteres",
                                        "O Código deve ter no máximo 20 caracteres"}));
    EXPECT_EQ(Mostradas()[0].Titulo, "Consulta de Preços");
    EXPECT_EQ(Retorno(), "");
    db->mensagens->Limpa();

    Abre([&](TolvanF07& f) {
        f.TCodigo.Digita("000112");
        f.Tecla(&f.TCodigo, tecla::Enter, 0);
        EXPECT_EQ(f.LNome.Caption, "Cesta de Natal 2023");
        f.BTOk.Click();
        EXPECT_TRUE(f.Carregada()) << "an inactive grouping is refused";
    });
    ASSERT_EQ(Mostradas().size(), 2u);
    for (const auto& m : Mostradas()) {
        EXPECT_EQ(m.Texto, "Agrupamento Inativo");
        EXPECT_EQ(m.Titulo, "Consulta de Agrupamento");
        EXPECT_EQ(m.Tipo, 48);
    }
    EXPECT_EQ(SessaoAtual().StatusRet, 1);
    EXPECT_EQ(Retorno(), "");
    db->mensagens->Limpa();

    SessaoAtual().TipoPreco = "3";
    for (const char* codigo : {"SEMCODIGO", "PDV01"}) {
        Vende(codigo, "2");
        EXPECT_FALSE(tela.Carregada()) << "OK on a grouping with nothing to sell closes: " << codigo;
        EXPECT_EQ(SessaoAtual().StatusRet, 1);
        EXPECT_EQ(Retorno(), "");
    }
    EXPECT_EQ(Textos(), std::vector<std::string>(
                            2, "Não existem itens cadastrados neste agrupamento para o tipo de preço 3"));
}

TEST_P(Precos, ListaTeclasESaidas) {
    Abre([&](TolvanF07& f) {
        EscolheNaLista(*janelas, "Kit limpeza");
        f.Tecla(&f.TCodigo, tecla::Direita, 0);
        EXPECT_EQ(f.TCodigo.Text, "000103") << "the code comes back as stored, leading zeros kept";
        EXPECT_EQ(f.LNome.Caption, "Kit limpeza da casa");
        EXPECT_EQ(f.ActiveControl(), &f.TxQtdGera);
        f.TxQtdGera.Digita("4");

        f.Tecla(&f.TxQtdGera, tecla::F11, 0);
        EXPECT_EQ(f.TCodigo.Text, "");
        EXPECT_EQ(f.LNome.Caption, "");
        EXPECT_EQ(f.TxQtdGera.Text, "4") << "clearing keeps the quantity";
        EXPECT_EQ(f.ActiveControl(), &f.TCodigo);

        janelas->AoMostrar("TolvanF02", [](Tela& t) { t.Tecla(t.ActiveControl(), tecla::Esc, 0); });
        f.Tecla(&f.TCodigo, tecla::F2, 0);
        f.Tecla(&f.TCodigo, tecla::F2, modificador::Shift);
        EXPECT_EQ(f.TCodigo.Text, "");
        EXPECT_EQ(janelas->Conta("Modal"), 3u)
            << "this screen, then the list by Right arrow and F2; not Shift+F2";

        EXPECT_FALSE(f.PedeFechamento()) << "the close box is refused";
        janelas->pendente = &f;
        f.Tecla(&f.TCodigo, tecla::Esc, 0);
        EXPECT_FALSE(f.Carregada());
    });
    EXPECT_EQ(Textos(), std::vector<std::string>{"Repita a Operação"});
    EXPECT_EQ(SessaoAtual().StatusRet, 1) << "leaving without OK returns nothing";
}

ZTOLVAN_NOS_DOIS_BANCOS(Precos);

} // namespace
