// The quantity, multiplier and groupings-list dialogs in their Qt views,
// driven with keys and read back from the models.
#include <QLineEdit>
#include <QListWidget>

#include "apoio/banco_teste.h"
#include "common/texto.h"
#include "data/schema/esquema.h"
#include "entry/sessao.h"
#include "qt/apoio_qt.h"
#include "screens/auxiliary/tolvanf02.h"
#include "screens/auxiliary/tolvanf03.h"
#include "screens/auxiliary/tolvanf05.h"
#include "screens/troca.h"
#include "ui/qt/comum_qt.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class DialogosQt : public TelaQt {};

QString Texto(VisaoTela& v, Controle& c) { return static_cast<QLineEdit*>(v.WidgetDe(&c))->text(); }

TEST_F(DialogosQt, QuantidadeEnterAvancaEEscFechaSemGuardar) {
    Troca().QtdAlterar = 5;
    TolvanF03 f;
    auto v = Abre(f);
    EXPECT_EQ(v->windowTitle(), QStringLiteral("Alteração da Quantidade/Preço"));
    ASSERT_EQ(QApplication::focusWidget(), v->WidgetDe(&f.TQtd));
    EXPECT_EQ(static_cast<QLineEdit*>(v->WidgetDe(&f.TQtd))->selectedText(), QStringLiteral("5"));

    Tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), v->WidgetDe(&f.txtValor));
    EXPECT_EQ(f.ActiveControl(), &f.txtValor);
    EXPECT_EQ(Texto(*v, f.TQtd), QStringLiteral("5,00")) << "a field without focus shows its format";

    Tecla(Qt::Key_Escape);
    EXPECT_FALSE(f.Carregada());
    EXPECT_FALSE(v->isVisible());
    EXPECT_EQ(Troca().QtdAlterar, 5);
    EXPECT_FALSE(Troca().AlteracaoConfirmada);
}

TEST_F(DialogosQt, QuantidadeAcimaDeMilSoFicaComSim) {
    Troca().QtdAlterar = 5;
    TolvanF03 f;
    auto v = Abre(f);
    Digita("1000,01");
    EXPECT_EQ(f.TQtd.Text, "1000,01");

    mensagens->Responde(msg::RespostaNao);
    QTest::mouseClick(v->WidgetDe(&f.BTOk), Qt::LeftButton);
    ASSERT_EQ(mensagens->Mostradas().size(), 1u);
    EXPECT_EQ(mensagens->Mostradas()[0].Texto, "Confirma a Quantidade de 1000,01?");
    EXPECT_EQ(mensagens->Mostradas()[0].Tipo, 292);
    EXPECT_TRUE(v->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), v->WidgetDe(&f.TQtd));
    EXPECT_FALSE(Troca().AlteracaoConfirmada);

    // The button's mnemonic goes past the screen's key handler to the button
    // (which clicks a moment later, as buttons do).
    mensagens->Responde(msg::RespostaSim);
    Tecla(Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !v->isVisible(); }, 2000));
    EXPECT_EQ(mensagens->Mostradas().size(), 2u);
    EXPECT_TRUE(Troca().AlteracaoConfirmada);
    EXPECT_DOUBLE_EQ(Troca().QtdAlterar, 1000.01);
}

TEST_F(DialogosQt, MultiplicadorVoltaA1NoFocoEGuardaTresDigitos) {
    Troca().QtdGera = 7;
    TolvanF05 f;
    auto v = Abre(f);
    auto* campo = static_cast<QLineEdit*>(v->WidgetDe(&f.TxQtdGera));
    ASSERT_EQ(QApplication::focusWidget(), campo);
    EXPECT_EQ(campo->selectedText(), QStringLiteral("1"));

    Digita("1234");
    EXPECT_EQ(campo->text(), QStringLiteral("123"));
    EXPECT_EQ(f.TxQtdGera.Text, "123");
    Tecla(Qt::Key_Tab);
    Tecla(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), campo);
    EXPECT_EQ(campo->text(), QStringLiteral("1")) << "entering the field again resets it";

    Tecla(Qt::Key_Escape);
    EXPECT_FALSE(v->isVisible());
    EXPECT_EQ(Troca().QtdGera, 7) << "Esc keeps the last multiplier";

    TolvanF05 g;
    auto w = Abre(g);
    Digita("999");
    Tecla(Qt::Key_Return);
    EXPECT_FALSE(w->isVisible());
    EXPECT_EQ(Troca().QtdGera, 999);
}

TEST_F(DialogosQt, ListaDeAgrupamentosDevolveOCodigoOuVazio) {
    BancoTeste db(Kind::Sqlite);
    ASSERT_TRUE(db.Pronto()) << db.Motivo();
    PortasAtuais().mensagens = mensagens;
    ASSERT_TRUE(db.Conecta());
    std::string m;
    ASSERT_TRUE(SemeiaDemo(m)) << m;
    // Two groupings whose names sort first.
    for (const char* novo : {"'0042', 'Agrupamento numerado A'", "'7', 'Agrupamento numerado B'"})
        db.Direto(
            std::string("INSERT INTO TBMATAG (Empresa, Codigo, Nome, Item, CodItem, CodEquiv, STTR, Tipo) "
                        "SELECT Empresa, ") +
            novo +
            ", Item, CodItem, CodEquiv, 0, Tipo FROM TBMATAG WHERE Empresa = 1 AND Codigo = '000101'");
    SessaoAtual().EmpresaConsulta = 1;
    SessaoAtual().TipoPreco = "1";

    TolvanF02 f;
    auto v = Abre(f);
    auto* lista = static_cast<QListWidget*>(v->WidgetDe(&f.lstProdutosAgrupados));
    ASSERT_GE(lista->count(), 2);
    EXPECT_EQ(lista->count(), f.lstProdutosAgrupados.ListCount());
    EXPECT_EQ(QApplication::focusWidget(), lista);
    EXPECT_EQ(lista->currentRow(), 0);
    EXPECT_EQ(Apara(S(lista->item(1)->text())), "Agrupamento numerado B");

    Tecla(Qt::Key_Down);
    EXPECT_EQ(f.lstProdutosAgrupados.ListIndex, 1);
    Tecla(Qt::Key_Return);
    EXPECT_FALSE(v->isVisible());
    EXPECT_EQ(Troca().CodigoSelecionado, "7");

    TolvanF02 g;
    auto w = Abre(g);
    Tecla(Qt::Key_Escape);
    EXPECT_FALSE(w->isVisible());
    EXPECT_EQ(Troca().CodigoSelecionado, "");
    EXPECT_TRUE(mensagens->Mostradas().empty());
}

} // namespace
