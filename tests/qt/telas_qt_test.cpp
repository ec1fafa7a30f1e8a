// The point-of-sale price screen, grouping maintenance and the quotation
// print dialog in their Qt views, driven with keys as an operator would.
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyleOption>
#include <QTimer>
#include <functional>

#include "apoio/banco_teste.h"
#include "common/texto.h"
#include "data/schema/esquema.h"
#include "entry/sessao.h"
#include "qt/apoio_qt.h"
#include "screens/auxiliary/tolvanf03.h"
#include "screens/auxiliary/tolvanf07.h"
#include "screens/auxiliary/tolvanf08.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/grade.h"
#include "screens/troca.h"
#include "ui/qt/comum_qt.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class TelasQt : public TelaQt {
  protected:
    // The demo data; the session of company 1, price type 1.
    void Demo() {
        ASSERT_TRUE(db.Pronto()) << db.Motivo();
        ASSERT_TRUE(db.Conecta());
        PortasAtuais().mensagens = mensagens;
        std::string m;
        ASSERT_TRUE(SemeiaDemo(m)) << m;
        Sessao& s = SessaoAtual();
        s.Empresa = s.EmpresaConsulta = 1;
        s.Operador = "TESTE";
        s.TipoPreco = "1";
    }
    // Acts on a screen shown modally from inside a handler, once its window has the keyboard.
    static void QuandoAbrir(const std::string& nome, std::function<void()> acao) {
        auto* vigia = new QTimer(QApplication::instance());
        QObject::connect(vigia, &QTimer::timeout, [vigia, nome, acao] {
            for (VisaoTela* v : VisaoTela::Todas())
                if (v->ModeloTela().Name == nome && v->isActiveWindow()) {
                    vigia->deleteLater();
                    vigia->stop();
                    acao();
                    return;
                }
        });
        vigia->start(10);
    }
    static QWidget* Foco() { return QApplication::focusWidget(); }

    BancoTeste db{Kind::Sqlite};
};

// What the keyboard does in the quantity dialog is in its real-window test;
// here, what the view shows between keys.
TEST_F(TelasQt, QuantidadeSelecionadaNoFocoEFormatadaForaDele) {
    Troca().QtdAlterar = 5;
    TolvanF03 f;
    auto v = Abre(f);
    EXPECT_EQ(v->windowTitle(), QStringLiteral("Alteração da Quantidade/Preço"));
    auto* qtd = static_cast<QLineEdit*>(v->WidgetDe(&f.TQtd));
    ASSERT_EQ(Foco(), qtd);
    EXPECT_EQ(qtd->selectedText(), QStringLiteral("5"));
    Tecla(Qt::Key_Return);
    EXPECT_EQ(Foco(), v->WidgetDe(&f.txtValor));
    EXPECT_EQ(qtd->text(), QStringLiteral("5,00")) << "a field without focus shows its format";
    Tecla(Qt::Key_Escape);
    EXPECT_FALSE(v->isVisible());
}

TEST_F(TelasQt, PrecosEnterAvancaTeclasDosBotoesEFechaSoPeloEsc) {
    Demo();
    SessaoAtual().StatusRet = 1;
    TolvanF07 f;
    auto v = Abre(f);
    ASSERT_EQ(Foco(), v->WidgetDe(&f.TCodigo));

    Tecla(Qt::Key_Return);
    EXPECT_EQ(Foco(), v->WidgetDe(&f.TCodigo)) << "no code, nothing read: Enter stays";
    Digita("000101");
    Tecla(Qt::Key_Return);
    ASSERT_EQ(Foco(), v->WidgetDe(&f.TxQtdGera));
    EXPECT_EQ(f.ActiveControl(), &f.TxQtdGera);
    EXPECT_EQ(static_cast<QLabel*>(v->WidgetDe(&f.LNome))->text(),
              QStringLiteral("Cesta básica tradicional"));

    // The quantity entered is selected, so a digit types over it.
    Digita("0");
    EXPECT_EQ(f.TxQtdGera.Text, "0");
    Tecla(Qt::Key_Return);
    ASSERT_EQ(Foco(), v->WidgetDe(&f.BTOk));
    QStyleOption estilo;
    estilo.initFrom(Foco());
    EXPECT_TRUE(estilo.state & QStyle::State_KeyboardFocusChange)
        << "the button Enter went to shows its focus";
    Tecla(Qt::Key_Return);
    EXPECT_EQ(Textos(*mensagens), std::vector<std::string>{"A quantidade deve ser informada"}) << "Enter pressed OK";
    EXPECT_EQ(Foco(), v->WidgetDe(&f.TxQtdGera));

    Tecla(Qt::Key_F11);
    EXPECT_EQ(Foco(), v->WidgetDe(&f.TCodigo));
    EXPECT_EQ(static_cast<QLineEdit*>(v->WidgetDe(&f.TCodigo))->text(), QString());
    EXPECT_EQ(static_cast<QLabel*>(v->WidgetDe(&f.LNome))->text(), QString());

    // Right arrow opens the list; the grouping chosen there is read and the quantity is next.
    QuandoAbrir("TolvanF02", [] { Tecla(Qt::Key_Return); });
    Tecla(Qt::Key_Right);
    ASSERT_TRUE(QTest::qWaitForWindowActive(v.get()));
    EXPECT_FALSE(Troca().CodigoGravado.empty());
    EXPECT_EQ(S(static_cast<QLineEdit*>(v->WidgetDe(&f.TCodigo))->text()), Troca().CodigoGravado);
    EXPECT_FALSE(f.LNome.Caption.empty());
    ASSERT_EQ(Foco(), v->WidgetDe(&f.TxQtdGera));
    Digita("7");
    EXPECT_EQ(f.TxQtdGera.Text, "7") << "entered again, the quantity is selected again";
    // F2 opens it too; leaving it with Esc brings no code back.
    QuandoAbrir("TolvanF02", [] { Tecla(Qt::Key_Escape); });
    Tecla(Qt::Key_F2);
    ASSERT_TRUE(QTest::qWaitForWindowActive(v.get()));
    EXPECT_EQ(f.TCodigo.Text, "");

    v->close();
    EXPECT_TRUE(v->isVisible()) << "the close box is refused";
    Tecla(Qt::Key_Escape);
    EXPECT_FALSE(f.Carregada());
    EXPECT_FALSE(v->isVisible());
    EXPECT_EQ(SessaoAtual().StatusRet, 1);
}

TEST_F(TelasQt, ManutencaoObservacaoEmVariasLinhasTabSaiEEscFecha) {
    Demo();
    Grade agrupamentos;
    agrupamentos.DefineCols(3);
    agrupamentos.DefineRows(1);
    agrupamentos.AddItem("000101\tCesta básica tradicional\tAtivo");
    agrupamentos.Seleciona(1, 0);
    TolvanF08 f(agrupamentos);
    f.Carrega();
    f.TxCodigo.Text = "000101";
    auto v = Abre(f);
    auto* obs = qobject_cast<QPlainTextEdit*>(v->WidgetDe(&f.txtObservacao));
    ASSERT_NE(obs, nullptr);
    EXPECT_EQ(obs->toPlainText(), QStringLiteral("Composição padrão para venda ao consumidor e doações."));
    ASSERT_EQ(Foco(), v->WidgetDe(&f.TxNome)) << "the code is not editable";

    for (Controle* c : std::initializer_list<Controle*>{&f.CmbSituacao, &f.cbTipo, &f.txtObservacao}) {
        Tecla(Qt::Key_Tab);
        EXPECT_EQ(Foco(), v->WidgetDe(c)) << c->Name;
    }
    EXPECT_EQ(f.ActiveControl(), &f.txtObservacao);

    // Enter breaks the line (the screen leaves it to the field); the model keeps "\r\n".
    Tecla(Qt::Key_A, Qt::ControlModifier);
    Digita("Linha 1");
    Tecla(Qt::Key_Return);
    Digita("Linha 2");
    EXPECT_EQ(f.txtObservacao.Text, "Linha 1\r\nLinha 2");
    Tecla(Qt::Key_Tab);
    EXPECT_EQ(Foco(), v->WidgetDe(&f.bttIncluir)) << "Tab leaves the field";
    EXPECT_EQ(f.txtObservacao.Text, "Linha 1\r\nLinha 2");
    EXPECT_EQ(obs->toPlainText(), QStringLiteral("Linha 1\nLinha 2"));

    // 297 characters: a break takes two more, and then one letter fits.
    f.txtObservacao.Text = std::string(297, 'a');
    v->FocaControle(f.txtObservacao);
    Tecla(Qt::Key_End, Qt::ControlModifier);
    Tecla(Qt::Key_Return);
    Digita("xyz");
    EXPECT_EQ(f.txtObservacao.Text, std::string(297, 'a') + "\r\nx");
    EXPECT_EQ(obs->toPlainText(), QString(297, QLatin1Char('a')) + QStringLiteral("\nx"));

    Tecla(Qt::Key_Escape);
    EXPECT_FALSE(f.Carregada());
    EXPECT_FALSE(v->isVisible());
    EXPECT_EQ(agrupamentos.TextMatrix(1, 1), "Cesta básica tradicional") << "nothing saved";
}

} // namespace
