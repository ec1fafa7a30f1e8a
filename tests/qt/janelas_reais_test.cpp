// The three dialogs in real windows on an X server (ctest starts a private
// one with xvfb-run): laid out inside their windows with nothing cut, and
// typed into through the X server by xdotool, as an operator would.
//
//   ztolvan_qt_janelas_tests                  the checks
//   ztolvan_qt_janelas_tests --mostra f03     one screen (f01 f02 f03 f04 f05 f07 f08), left to
//                                             whoever looks at it; "--mostra f01 servidor"
//                                             on the PostgreSQL server of the tests
#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <iostream>

#include "apoio/banco_teste.h"
#include "common/contexto.h"
#include "common/conversao.h"
#include "common/portas.h"
#include "common/texto.h"
#include "data/banco_dados.h"
#include "data/schema/esquema.h"
#include "entry/sessao.h"
#include "generation/cotacao/tolvanf04.h"
#include "screens/auxiliary/tolvanf02.h"
#include "screens/auxiliary/tolvanf03.h"
#include "screens/auxiliary/tolvanf05.h"
#include "screens/auxiliary/tolvanf07.h"
#include "screens/auxiliary/tolvanf08.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/grade.h"
#include "screens/troca.h"
#include "ui/qt/controles_qt.h"
#include "ui/qt/instala_qt.h"
#include "ui/qt/janelas_qt.h"
#include "ui/qt/visao_tela.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

// A demo database with two groupings whose names sort first.
struct BancoDemo {
    explicit BancoDemo(Kind k = Kind::Sqlite) : db(k) {
        if (!db.Pronto() || !db.Conecta()) return;
        std::string m;
        if (!SemeiaDemo(m)) return;
        for (const char* novo : {"'0042', 'Agrupamento numerado A'", "'7', 'Agrupamento numerado B'"})
            db.Direto(
                std::string("INSERT INTO TBMATAG (Empresa, Codigo, Nome, Item, CodItem, CodEquiv, STTR, "
                            "Tipo) SELECT Empresa, ") +
                novo +
                ", Item, CodItem, CodEquiv, 0, Tipo FROM TBMATAG WHERE Empresa = 1 AND Codigo = "
                "'000101'");
        SessaoAtual().EmpresaConsulta = 1;
        SessaoAtual().TipoPreco = "1";
        pronto = true;
    }
    BancoTeste db;
    bool pronto = false;
};

class JanelasReais : public ::testing::Test {
  protected:
    void SetUp() override {
        if (qEnvironmentVariableIsEmpty("DISPLAY"))
            GTEST_SKIP() << "no X display (ctest runs this under xvfb-run)";
        ASSERT_TRUE(InstalaQt());
        ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb"));
        xdotool = QStandardPaths::findExecutable(QStringLiteral("xdotool"));
        if (xdotool.isEmpty()) GTEST_SKIP() << "xdotool is not installed";
    }
    void TearDown() override { Contexto::Renova(); }

    // Every control inside the window, and no caption cut. What the screen
    // itself places past its edges is the screen's layout: noted, not failed.
    static void ConfereArranjo(const Tela& t, VisaoTela& v) {
        const QRect janela = v.rect();
        for (QWidget* w : v.findChildren<QWidget*>()) {
            if (!w->isVisible() || w->parentWidget() != &v) continue;
            SCOPED_TRACE(w->objectName().toStdString());
            const Controle* c = v.ControleDe(w);
            if (c && (c->Left + c->Width > t.Width || c->Top + c->Height > t.Height)) {
                std::cerr << "note: " << t.Name << " places " << c->Name << " past its edges\n";
                continue;
            }
            EXPECT_TRUE(janela.contains(w->geometry())) << "outside the window";
            const QFontMetrics fm(w->font());
            if (auto* l = qobject_cast<QLabel*>(w); l && !l->wordWrap()) {
                EXPECT_LE(fm.horizontalAdvance(l->text()), l->width()) << "caption cut";
            } else if (auto* b = qobject_cast<QAbstractButton*>(w)) {
                EXPECT_LE(b->sizeHint().width(), b->width() + 8) << "button text cut";
            } else if (auto* m = dynamic_cast<MolduraQt*>(w)) {
                EXPECT_LE(fm.horizontalAdvance(m->Titulo()) + 12, m->width()) << "frame title cut";
            }
        }
    }

    // Shows the screen modally; once its window is up, checks the arrangement
    // and lets xdotool press 'teclas' (X key names) through the X server.
    void Opera(Tela& t, const char* titulo, const QStringList& teclas, int atraso = 80) {
        QProcess operador;
        QTimer inicio, vigia;
        // The screen may let events run while it loads, before its window exists.
        QObject::connect(&inicio, &QTimer::timeout, [&] {
            VisaoTela* v = VisaoTela::De(&t);
            if (!v || !v->isVisible()) return;
            inicio.stop();
            EXPECT_TRUE(QTest::qWaitForWindowExposed(v));
            ConfereArranjo(t, *v);
            // Focused first; then plain keys, through the X server's test extension as a keyboard's.
            EXPECT_EQ(QProcess::execute(xdotool, {"search", "--sync", "--onlyvisible", "--name", titulo,
                                                  "windowfocus", "--sync"}),
                      0);
            operador.start(xdotool, QStringList{"key", "--delay", QString::number(atraso)} + teclas);
        });
        // Nobody is left at the keyboard if xdotool fails: the screen is closed for it.
        vigia.setSingleShot(true);
        QObject::connect(&vigia, &QTimer::timeout, [&t] {
            if (VisaoTela* v = VisaoTela::De(&t)) {
                ADD_FAILURE() << "the dialog was still open";
                t.Unload();
                v->done(0);
            }
        });
        inicio.start(20);
        vigia.start(20000);
        MostraModal(t);
        EXPECT_TRUE(operador.waitForFinished(10000));
        EXPECT_EQ(operador.exitCode(), 0) << operador.readAllStandardError().toStdString();
    }

    QString xdotool;
};

TEST_F(JanelasReais, MultiplicadorDigitadoPeloTeclado) {
    Contexto::Renova();
    Troca().QtdGera = 7;
    TolvanF05 f;
    Opera(f, "Gera Documento", {"1", "2", "3", "4", "Return"});
    EXPECT_EQ(Troca().QtdGera, 123);
}

TEST_F(JanelasReais, QuantidadeConfirmadaPeloAtalhoDoBotao) {
    Contexto::Renova();
    auto m = std::make_shared<MensagensGravadas>();
    PortasAtuais().mensagens = m;
    m->Responde(msg::RespostaSim);
    Troca().QtdAlterar = 5;
    Troca().DescricaoAlterar = "AÇÚCAR CRISTAL 1KG";
    Troca().FornecedorAlterar = "Usina São João";
    TolvanF03 f;
    Opera(f, "Quantidade", {"1", "0", "0", "0", "comma", "0", "1", "Return", "alt+o"});
    EXPECT_TRUE(Troca().AlteracaoConfirmada);
    EXPECT_DOUBLE_EQ(Troca().QtdAlterar, 1000.01);
    ASSERT_EQ(m->Mostradas().size(), 1u);
    EXPECT_EQ(m->Mostradas()[0].Texto, "Confirma a Quantidade de 1000,01?");
}

TEST_F(JanelasReais, AgrupamentoEscolhidoComSetaEEnter) {
    BancoDemo banco;
    ASSERT_TRUE(banco.pronto) << banco.db.Motivo();
    TolvanF02 f;
    Opera(f, "Lista de Produtos", {"Down", "Return"});
    EXPECT_EQ(Troca().CodigoSelecionado, "7");
}

// Rows of the grouping with the given price type, read back from the database.
int LinhasComTipo(const std::string& codigo, int tipo) {
    clsBancoDados bd;
    bd.fcAbreBancoDadosVeltra(1);
    ResultadoComando r = bd.fcExecutaComando(
        1, "SELECT COUNT(*) AS N FROM TBMATAG WHERE EMPRESA = 1 AND CODIGO = '" + codigo + "' AND TIPO = " +
               std::to_string(tipo),
        false);
    return r.rsDadosRetorno.Eof() ? -1 : static_cast<int>(CDbl(r.rsDadosRetorno.Fields("N").Value));
}

// The price type changed from the keyboard in a real window: refused when
// an item has no price in it, asked, cancelled, and then applied on every
// row. Keys go slowly enough for a button's click to land between them.
TEST_F(JanelasReais, TipoDoAgrupamentoRecusadoPerguntadoEAplicadoPeloTeclado) {
    BancoDemo banco;
    ASSERT_TRUE(banco.pronto) << banco.db.Motivo();
    auto m = std::make_shared<MensagensGravadas>();
    PortasAtuais().mensagens = m;
    Sessao& s = SessaoAtual();
    s.Empresa = 1;
    s.Origem = s.OrigemTrim = ""; // consultation: where maintenance opens
    // The consultation screen's model, unseen, holds the grouping's rows and items.
    TolvanF01 consulta;
    consulta.Carrega();
    const auto mantem = [&](const std::string& codigo, const QStringList& teclas) {
        Grade& g = consulta.MSFGAgrupamento;
        for (int r = 1; r < g.Rows(); ++r)
            if (Apara(g.TextMatrix(r, 0)) == codigo) g.Seleciona(r, 0);
        consulta.MSFGAgrupamento_Click();
        TolvanF08 f(g);
        // As the consultation screen opens it: loaded, then told the row's code.
        f.Carrega();
        f.TxCodigo.Text = codigo;
        Opera(f, "Manutenção de Agrupamento", teclas, 250);
        return f.Carregada();
    };
    // 000102 holds a product with no equivalence at all.
    EXPECT_FALSE(mantem("000102", {"Tab", "Tab", "Down", "alt+g", "Escape"}));
    ASSERT_EQ(m->Mostradas().size(), 1u);
    EXPECT_EQ(m->Mostradas()[0].Texto, "Não existe Tipo 2 para todos os itens nesse agrupamento.");
    EXPECT_EQ(LinhasComTipo("000102", 1), 7);

    m->Limpa();
    m->Responde(msg::RespostaCancelar);
    EXPECT_FALSE(mantem("000103", {"Tab", "Tab", "Down", "alt+g", "Escape"}));
    EXPECT_EQ(LinhasComTipo("000103", 1), 7) << "cancelled: nothing written";
    m->Responde(msg::RespostaOK);
    EXPECT_FALSE(mantem("000103", {"Tab", "Tab", "Down", "alt+g"}));
    ASSERT_EQ(m->Mostradas().size(), 2u);
    for (const MensagemMostrada& q : m->Mostradas())
        EXPECT_EQ(q.Texto, "Tipo de Preço do Agrupamento será alterado para todos os itens.");
    EXPECT_EQ(LinhasComTipo("000103", 2), 7);
    EXPECT_EQ(LinhasComTipo("000103", 1), 0);
}

// One dialog in a window until it closes, then what it handed back.
int Mostra(const std::string& qual, Kind kind) {
    static const std::vector<std::string> todas = {"f01", "f02", "f03", "f04", "f05", "f07", "f08"};
    if (std::find(todas.begin(), todas.end(), qual) == todas.end()) {
        std::cerr << "f01, f02, f03, f04, f05, f07 or f08\n";
        return 2;
    }
    if (!InstalaQt()) {
        std::cerr << "no display\n";
        return 2;
    }
    // The database renews the thread's context: the session and exchange are set after it.
    std::unique_ptr<BancoDemo> banco;
    if (qual != "f03" && qual != "f04" && qual != "f05") banco = std::make_unique<BancoDemo>(kind);
    Troca().QtdAlterar = 5;
    Troca().DescricaoAlterar = "AÇÚCAR CRISTAL 1KG";
    Troca().FornecedorAlterar = "Usina São João";
    Sessao& s = SessaoAtual();
    s.Empresa = s.EmpresaConsulta = 1;
    s.Operador = "DEMO";
    s.TipoPreco = "1";
    s.StatusRet = 1;
    // What a screen works on outlives it.
    TolvanF01 consulta;
    Grade agrupamentos;
    std::unique_ptr<Tela> t;
    TolvanF08* manutencao = nullptr;
    if (qual == "f01") {
        s.Origem = s.OrigemTrim = "V";
        s.OrigemDocumento = true;
        t = std::make_unique<TolvanF01>();
    } else if (qual == "f02") {
        t = std::make_unique<TolvanF02>();
    } else if (qual == "f03") {
        t = std::make_unique<TolvanF03>();
    } else if (qual == "f04") {
        t = std::make_unique<TolvanF04>(consulta);
    } else if (qual == "f05") {
        t = std::make_unique<TolvanF05>();
    } else if (qual == "f07") {
        s.Origem = s.OrigemTrim = "F";
        t = std::make_unique<TolvanF07>();
    } else {
        // The consultation screen's grouping row, as maintenance is opened on it.
        agrupamentos.DefineCols(3);
        agrupamentos.DefineRows(1);
        agrupamentos.AddItem("000101\tCesta básica tradicional\tAtivo");
        agrupamentos.Seleciona(1, 0);
        auto f = std::make_unique<TolvanF08>(agrupamentos);
        f->Carrega();
        f->TxCodigo.Text = "000101";
        manutencao = f.get();
        t = std::move(f);
    }
    MostraModal(*t);
    const VariaveisTroca& v = Troca();
    std::cout << "QtdAlterar=" << v.QtdAlterar << " AlteracaoConfirmada=" << v.AlteracaoConfirmada
              << " QtdGera=" << v.QtdGera << " CodigoSelecionado=" << v.CodigoSelecionado
              << " StatusRet=" << s.StatusRet << " DadosRetorno=" << CStr(s.DadosRetorno) << '\n';
    if (manutencao) std::cout << "Observacao=" << manutencao->txtObservacao.Text << '\n';
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if ((argc == 3 || argc == 4) && std::strcmp(argv[1], "--mostra") == 0)
        return Mostra(argv[2], argc == 4 && std::strcmp(argv[3], "servidor") == 0 ? Kind::Postgres : Kind::Sqlite);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
