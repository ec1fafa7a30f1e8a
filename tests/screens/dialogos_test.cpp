// The quantity and multiplier dialogs and the information strip, driven as
// an operator would through the display-free window system.
#include <gtest/gtest.h>

#include "common/armazem_maquina.h"
#include "common/datas.h"
#include "common/portas.h"
#include "screens/auxiliary/rodape.h"
#include "screens/auxiliary/tolvanf03.h"
#include "screens/auxiliary/tolvanf05.h"
#include "screens/teclas.h"
#include "screens/tela.h"
#include "screens/tela_teste.h"
#include "screens/troca.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class Dialogos : public ::testing::Test, protected TelasDeTeste {};

struct Resultado {
    bool confirmada;
    double qtd;
};

// Opens TolvanF03 on quantity 5, types 'texto' and presses OK (answering the
// question, when one is expected, with 'resposta').
Resultado QuantidadeDigitada(JanelasModelo& j, MensagensGravadas& m, const std::string& texto,
                             int resposta = 0) {
    Troca().QtdAlterar = 5;
    if (resposta) m.Responde(resposta);
    j.AoMostrar("TolvanF03", [&](Tela& t) {
        auto& f = static_cast<TolvanF03&>(t);
        f.TQtd.Digita(texto);
        f.BTOk_Click();
    });
    TolvanF03 f;
    MostraModal(f);
    return {Troca().AlteracaoConfirmada, Troca().QtdAlterar};
}

TEST_F(Dialogos, QuantidadeValidaOZeroEPerguntaAcimaDeMil) {
    for (const char* vazio : {"", " , ", "."}) {
        mensagens->Limpa();
        janelas->AoMostrar("TolvanF03", [&](Tela& t) {
            auto& f = static_cast<TolvanF03&>(t);
            f.TQtd.Digita(vazio);
            f.BTOk_Click();
            EXPECT_EQ(f.TQtd.Text, "0,0000");
            EXPECT_TRUE(f.Carregada()) << "refused: the dialog stays open";
            EXPECT_EQ(f.ActiveControl(), &f.TQtd);
        });
        Troca().QtdAlterar = 5;
        TolvanF03 f;
        MostraModal(f);
        ASSERT_EQ(mensagens->Mostradas().size(), 1u) << vazio;
        EXPECT_EQ(mensagens->Mostradas()[0].Texto, "Quantidade Inválida");
        EXPECT_EQ(mensagens->Mostradas()[0].Tipo, 64);
        EXPECT_EQ(mensagens->Mostradas()[0].Titulo, "Lista");
        EXPECT_FALSE(Troca().AlteracaoConfirmada);
        EXPECT_EQ(Troca().QtdAlterar, 5) << "Esc after the refusal stores nothing";
    }
    mensagens->Limpa();
    Resultado mil = QuantidadeDigitada(*janelas, *mensagens, "1000");
    EXPECT_TRUE(mil.confirmada);
    EXPECT_EQ(mil.qtd, 1000);
    EXPECT_TRUE(mensagens->Mostradas().empty()) << "1000 itself passes without a question";

    Resultado sim = QuantidadeDigitada(*janelas, *mensagens, "1.000,01", msg::RespostaSim);
    ASSERT_EQ(mensagens->Mostradas().size(), 1u);
    EXPECT_EQ(mensagens->Mostradas()[0].Texto, "Confirma a Quantidade de 1.000,01?");
    EXPECT_EQ(mensagens->Mostradas()[0].Tipo, 292);
    EXPECT_TRUE(sim.confirmada);
    EXPECT_DOUBLE_EQ(sim.qtd, 1000.01);

    Resultado nao = QuantidadeDigitada(*janelas, *mensagens, "2500", msg::RespostaNao);
    EXPECT_FALSE(nao.confirmada);
    EXPECT_EQ(nao.qtd, 5);

    for (const char* ruim : {"abc", "-5", "-0,5"}) {
        mensagens->Limpa();
        Resultado r = QuantidadeDigitada(*janelas, *mensagens, ruim);
        EXPECT_FALSE(r.confirmada) << ruim << ": no quantity, or a negative one";
        EXPECT_EQ(r.qtd, 5) << ruim;
        ASSERT_EQ(mensagens->Mostradas().size(), 1u) << ruim;
        EXPECT_EQ(mensagens->Mostradas()[0].Texto, "Quantidade Inválida") << ruim;
    }
    // "2.5" is two and a half however the point is read, never 25.
    for (const char* decimal : {"2,5", "2.5"}) {
        mensagens->Limpa();
        Resultado r = QuantidadeDigitada(*janelas, *mensagens, decimal);
        EXPECT_TRUE(r.confirmada) << decimal;
        EXPECT_DOUBLE_EQ(r.qtd, 2.5) << decimal;
        EXPECT_TRUE(mensagens->Mostradas().empty()) << decimal;
    }
}

TEST_F(Dialogos, QuantidadeCarregaDaTrocaEnterAvancaEscECancelaNaoGuardam) {
    Troca().QtdAlterar = 2.5;
    Troca().DescricaoAlterar = "Arroz tipo 1 5kg";
    Troca().FornecedorAlterar = "Cerealista Paulista   ";
    Troca().AlteracaoConfirmada = true;
    janelas->AoMostrar("TolvanF03", [&](Tela& t) {
        auto& f = static_cast<TolvanF03&>(t);
        EXPECT_FALSE(Troca().AlteracaoConfirmada) << "reset on load";
        EXPECT_EQ(f.TQtd.Text, "2,5");
        EXPECT_EQ(f.TQtd.TextoExibido(false), "2,50");
        EXPECT_EQ(f.LEquivalencia.Caption, "Arroz tipo 1 5kg");
        EXPECT_EQ(f.LDescricao.Caption, "Cerealista Paulista");
        EXPECT_EQ(f.ActiveControl(), &f.TQtd);
        EXPECT_EQ(f.Tecla(&f.TQtd, tecla::Enter, 0), 0);
        EXPECT_EQ(f.ActiveControl(), &f.txtValor);
        f.Tecla(&f.txtValor, tecla::Enter, 0);
        EXPECT_EQ(f.ActiveControl(), &f.BTOk);
        f.TQtd.Digita("7");
        f.Tecla(f.ActiveControl(), tecla::Esc, 0);
        EXPECT_FALSE(f.Carregada());
    });
    TolvanF03 f;
    MostraModal(f);
    EXPECT_EQ(f.Width, f.shContorno.Width + 30);
    EXPECT_FALSE(Troca().AlteracaoConfirmada);
    EXPECT_EQ(Troca().QtdAlterar, 2.5);

    janelas->AoMostrar("TolvanF03", [](Tela& t) {
        auto& f = static_cast<TolvanF03&>(t);
        f.TQtd.Digita("9");
        f.BtCancela.Click();
    });
    MostraModal(f);
    EXPECT_EQ(Troca().QtdAlterar, 2.5);
    EXPECT_FALSE(Troca().AlteracaoConfirmada);
}

TEST_F(Dialogos, MultiplicadorVoltaAUmNoFocoEEscMantemOAnterior) {
    auto gera = [&](std::function<void(TolvanF05&)> acao) {
        janelas->AoMostrar("TolvanF05", [acao](Tela& t) { acao(static_cast<TolvanF05&>(t)); });
        TolvanF05 f;
        MostraModal(f);
    };
    gera([](TolvanF05& f) {
        EXPECT_EQ(f.TxQtdGera.Text, "1");
        EXPECT_EQ(f.TxQtdGera.SelLength, 1);
        f.Tecla(&f.TxQtdGera, tecla::Enter, 0);
    });
    EXPECT_EQ(Troca().QtdGera, 1);
    gera([](TolvanF05& f) {
        f.TxQtdGera.Digita("12x34");
        EXPECT_EQ(f.TxQtdGera.Text, "123") << "the mask keeps three digits";
        f.RecebeFoco(f.bok);
        f.RecebeFoco(f.TxQtdGera);
        EXPECT_EQ(f.TxQtdGera.Text, "1") << "entering the field again resets it";
        f.TxQtdGera.Digita("999");
        f.bok.Click();
    });
    EXPECT_EQ(Troca().QtdGera, 999);
    gera([](TolvanF05& f) {
        f.TxQtdGera.Digita("");
        f.bok.Click();
    });
    EXPECT_EQ(Troca().QtdGera, 0);
    Troca().QtdGera = 7;
    gera([](TolvanF05& f) {
        f.TxQtdGera.Digita("50");
        f.Tecla(&f.TxQtdGera, tecla::Esc, 0);
    });
    EXPECT_EQ(Troca().QtdGera, 7) << "Esc is the screen's: nothing stored";
}

// Label and separator layout of the information strip, with the model's
// text measure (12 twips a character per point: 96 per character in Arial 8).
TEST_F(Dialogos, FaixaDeInformacoesNumeraSemLacunasEReconstroi) {
    Tela t("Teste");
    t.Width = 9000;
    t.Height = 5000;
    sbMontaRodape(t);
    ASSERT_EQ(t.Controls().size(), 1u) << "all texts empty: only the strip";
    const auto& faixa = static_cast<const Forma&>(*t.Controls()[0]);
    EXPECT_EQ(faixa.Name, "shInformacoes");
    EXPECT_EQ(faixa.Top, 4700);
    EXPECT_EQ(faixa.Width, 9000);
    EXPECT_EQ(faixa.FillColor, RGB(65, 105, 225));

    sbMontaRodape(t, "AB", "", "CDE", "", "", "", "", "FIM");
    auto* l0 = static_cast<Rotulo*>(t.Acha("lblPainel0"));
    auto* l1 = static_cast<Rotulo*>(t.Acha("lblPainel1"));
    auto* s1 = t.Acha("shSeparador1");
    auto* l2 = static_cast<Rotulo*>(t.Acha("lblPainel2"));
    auto* s2 = t.Acha("shSeparador2");
    ASSERT_TRUE(l0 && l1 && s1 && l2 && s2);
    EXPECT_EQ(t.Controls().size(), 6u) << "the first call's strip is gone";
    EXPECT_EQ(t.Controls().front()->Name, "shInformacoes") << "the strip is at the back";
    EXPECT_EQ(l0->Left, 80);
    EXPECT_EQ(l0->Width, 192);
    EXPECT_EQ(s1->Left, 80 + 192 + 80);
    EXPECT_EQ(l1->Left, s1->Left + 5 + 120);
    EXPECT_EQ(l1->Caption, "CDE");
    EXPECT_EQ(l1->Top, 4730);
    EXPECT_EQ(s1->Top, 4750);
    EXPECT_EQ(s1->Height, 200);
    EXPECT_EQ(l2->Left, 9000 - 288 - 100) << "t8 at the right end";
    EXPECT_EQ(s2->Left, 9000 - 288 - 180);
    EXPECT_FALSE(l2->Opaco);
    EXPECT_TRUE(l0->Opaco);
    EXPECT_EQ(janelas->Conta("Bipe"), 0u);

    sbMontaRodape(t, "", "", "", "", "", "", "ATENÇÃO");
    auto* aviso = static_cast<Rotulo*>(t.Acha("lblPainel0"));
    ASSERT_NE(aviso, nullptr);
    EXPECT_EQ(aviso->ForeColor, RGB(247, 235, 2));
    EXPECT_EQ(janelas->Conta("Bipe"), 1u);
    EXPECT_EQ(t.Acha("lblPainel1"), nullptr);
}

// A narrow dialog: a text that would run past the strip's end starts a row
// below (no separator before it) and the screen grows by that row, once,
// however often the strip is rebuilt; a strip that fits again gives it back.
TEST_F(Dialogos, FaixaEstreitaQuebraEmOutraFilaSemCortarOSuporte) {
    Tela t("Estreita");
    t.Width = 3000;
    t.Height = 2000;
    Forma contorno;
    t.Registra(contorno, "shContorno", 0, 0, 3000, 2000);
    const std::string suporte(20, 'S'); // 1920 twips
    for (int vez = 0; vez < 2; ++vez) {
        sbMontaRodape(t, "Data: 25/11/2026", "", "", "", "", suporte);
        EXPECT_EQ(t.Height, 2300);
        EXPECT_EQ(contorno.Height, 2300) << "the outline takes the new row in";
        const auto* faixa = t.Acha("shInformacoes");
        ASSERT_NE(faixa, nullptr);
        EXPECT_EQ(faixa->Top, 1700);
        EXPECT_EQ(faixa->Height, 600);
        auto* l1 = static_cast<Rotulo*>(t.Acha("lblPainel1"));
        ASSERT_NE(l1, nullptr);
        EXPECT_EQ(l1->Left, 80);
        EXPECT_EQ(l1->Top, 1700 + 300 + 30);
        EXPECT_LE(l1->Left + l1->Width, t.Width);
        EXPECT_EQ(t.Acha("shSeparador1"), nullptr);
    }
    sbMontaRodape(t, "AB", "CD");
    EXPECT_EQ(t.Height, 2000);
    EXPECT_EQ(contorno.Height, 2000);
    EXPECT_EQ(t.Acha("shInformacoes")->Height, 300);
    EXPECT_NE(t.Acha("shSeparador1"), nullptr);
}

TEST_F(Dialogos, DataDeHojeELinhaDeSuporteDaInstalacao) {
    DefineRelogio([] { return std::chrono::system_clock::from_time_t(1706702400); }); // 31/01/2024 noon UTC
    EXPECT_EQ(TextoDataHoje(), "Data: 31/01/2024");
    DefineRelogio(nullptr);
    auto armazem = std::make_shared<ArmazemMemoria>();
    PortasAtuais().armazem = armazem;
    const std::string padrao = LinhaSuporte();
    EXPECT_FALSE(padrao.empty());
    armazem->valores["Suporte"] = "Loja 12 - ramal 230";
    EXPECT_EQ(LinhaSuporte(), "Loja 12 - ramal 230");
}

} // namespace
