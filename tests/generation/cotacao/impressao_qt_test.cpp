// The quotation as the operator prints it: F4 on the consultation screen, the
// title dialog in its Qt window (offscreen), and the pages of the PDF the Qt
// printer wrote.
#include <QTimer>
#include <filesystem>
#include <regex>
#include <unistd.h>

#include "apoio/banco_teste.h"
#include "apoio/pdf.h"
#include "data/schema/esquema.h"
#include "entry/sessao.h"
#include "generation/cotacao/cotacao.h"
#include "generation/cotacao/tolvanf04.h"
#include "qt/apoio_qt.h"
#include "ui/qt/impressora_qt.h"
#include "screens/consultation/tolvanf01.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class ImpressaoQt : public TelaQt {
  protected:
    void SetUp() override {
        TelaQt::SetUp();
        ASSERT_TRUE(db.Pronto() && db.Conecta());
        std::string m;
        ASSERT_TRUE(SemeiaDemo(m)) << m;
        db.Direto(SqlAgrupamentoSessentaItens);
        Sessao& s = SessaoAtual();
        s.Empresa = s.EmpresaConsulta = 1;
        s.TipoPreco = "1";
        s.Origem = s.OrigemTrim = "V"; // every row comes marked
        InstalaCotacao();
        pdf = (std::filesystem::temp_directory_path() / ("ztolvan-f4-" + std::to_string(getpid()) + ".pdf"))
                  .string();
        setenv("ZTOLVAN_IMPRESSORA", pdf.c_str(), 1);
    }
    void TearDown() override {
        unsetenv("ZTOLVAN_IMPRESSORA");
        std::filesystem::remove(pdf);
        TelaQt::TearDown();
    }
    BancoTeste db{Kind::Sqlite};
    std::string pdf;
};

TEST_F(ImpressaoQt, F4DaConsultaImprimeSessentaItensEmDuasPaginas) {
    TolvanF01 f;
    auto v = Abre(f);
    f.cboPesquisa.Seleciona(1);
    f.txtPesquisa.Text = "COT60";
    f.bttPesquisa_Click();
    v->Sincroniza();
    ASSERT_EQ(f.GCon1.Rows(), 61);

    // Once the title dialog has the keyboard: a title, Enter to the footer,
    // a footer, and its print button.
    bool preenchida = false;
    QTimer espera;
    QObject::connect(&espera, &QTimer::timeout, [&] {
        auto* d = dynamic_cast<VisaoTela*>(QApplication::activeModalWidget());
        if (!d || d == v.get() || !d->isAncestorOf(QApplication::focusWidget())) return;
        espera.stop();
        auto& t = static_cast<TolvanF04&>(d->ModeloTela());
        Digita("Teste");
        Tecla(Qt::Key_Return);
        preenchida = QApplication::focusWidget() == d->WidgetDe(&t.TxRodape);
        Digita("Obrigado e volte sempre");
        QTest::mouseClick(d->WidgetDe(&t.bok), Qt::LeftButton);
    });
    espera.start(20);
    mensagens->Responde(msg::RespostaSim);
    Tecla(Qt::Key_F4);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !espera.isActive(); }, 5000));
    EXPECT_TRUE(preenchida) << "Enter moves from the title to the footer";

    ASSERT_EQ(mensagens->Mostradas().size(), 2u);
    EXPECT_EQ(mensagens->Mostradas()[0].Texto, "Deseja imprimir a Cotação?");
    EXPECT_EQ(mensagens->Mostradas()[1].Texto, "Cotação enviada para o arquivo " + pdf + ".");
    const std::vector<std::string> paginas = PaginasDoPdf(pdf);
    ASSERT_EQ(paginas.size(), 2u);
    EXPECT_EQ(ItensDaPagina(paginas[0]), Sequencia(1, 55));
    EXPECT_EQ(ItensDaPagina(paginas[1]), Sequencia(56, 60));
    EXPECT_NE(paginas[0].find("Cotação - Sessenta itens(Teste)"), std::string::npos) << paginas[0];
    EXPECT_NE(paginas[1].find("Obrigado e volte sempre"), std::string::npos);
    // "Courier New" is not on the machine: its metric twin printed.
    EXPECT_NE(Executa("pdffonts '" + pdf + "'").texto.find("LiberationMono"), std::string::npos);
}

// The matrix-printer setting on a machine without its draft face, and a
// company that cannot be read (no page header): the columns print in a
// fixed-pitch face, in their own size, every price inside the page.
TEST_F(ImpressaoQt, MatricialSemEmpresaFicaNaPaginaEmFonteDePassoFixo) {
    db.Direto("INSERT INTO TBREGSRV (USUARIO, CHAVE, VALOR) VALUES ('TESTE', 'IMPRESSORA MATRICIAL', 'SIM')");
    SessaoAtual().Operador = "TESTE";
    TolvanF01 f;
    f.Carrega();
    f.cboPesquisa.Seleciona(1);
    f.txtPesquisa.Text = "COT60";
    f.bttPesquisa_Click();
    ASSERT_EQ(f.GCon1.Rows(), 61);
    SessaoAtual().Empresa = 99;
    mensagens->Responde(msg::RespostaOK);
    {
        ImpressoraQt p(QString(), QString::fromStdString(pdf));
        ASSERT_TRUE(ImprimeCotacao(p, f, "", ""));
    }
    ASSERT_EQ(mensagens->Mostradas().size(), 2u) << "the company read failed on each page";
    const std::string fontes = Executa("pdffonts '" + pdf + "'").texto;
    EXPECT_NE(fontes.find("LiberationMono"), std::string::npos) << fontes;
    EXPECT_EQ(fontes.find("Serif"), std::string::npos) << fontes;

    // pdftotext -bbox: each word with its box; none may pass the page's width.
    const std::string caixas = Executa("pdftotext -bbox '" + pdf + "' -").texto;
    const std::regex pagina(R"re(<page width="([0-9.]+)")re"),
        palavra(R"re(xMax="([0-9.]+)"[^>]*>([^<]*)</word>)re");
    std::smatch m;
    ASSERT_TRUE(std::regex_search(caixas, m, pagina)) << caixas.substr(0, 500);
    const double largura = std::stod(m[1]);
    int palavras = 0;
    bool totalGeral = false;
    std::string anterior;
    for (auto i = std::sregex_iterator(caixas.begin(), caixas.end(), palavra); i != std::sregex_iterator(); ++i) {
        ++palavras;
        EXPECT_LE(std::stod((*i)[1]), largura) << (*i)[2] << " runs off the page";
        if (anterior == "Geral" && std::isdigit(static_cast<unsigned char>((*i)[2].str()[0]))) totalGeral = true;
        anterior = (*i)[2];
    }
    EXPECT_GT(palavras, 60 * 6);
    EXPECT_TRUE(totalGeral) << "the grand total's value follows its label";
}

// Faces the machine lacks, a file that cannot be written and a job
// abandoned half-way, on the printer itself.
TEST_F(ImpressaoQt, ImpressoraRecusaFonteDesconhecidaEArquivoInacessivelENaoDeixaMeioPdf) {
    ImpressoraQt p(QString(), QString::fromStdString(pdf));
    ASSERT_TRUE(p.Inicia("Cotação"));
    EXPECT_TRUE(p.DefineFonte("Courier New"));
    EXPECT_TRUE(p.DefineFonte("Liberation Serif"));
    EXPECT_FALSE(p.DefineFonte("Draft 12cpi"));
    EXPECT_TRUE(p.Escreve(10, "meia página"));
    EXPECT_TRUE(p.NovaLinha());
    p.Cancela();
    EXPECT_FALSE(std::filesystem::exists(pdf));
    EXPECT_FALSE(p.Escreve(1, "depois do fim"));

    ImpressoraQt semPasta(QString(), QString::fromStdString(pdf + ".d/x.pdf"));
    EXPECT_FALSE(semPasta.Inicia("Cotação"));
    ImpressoraQt inexistente(QStringLiteral("impressora-que-nao-existe"), QString());
    EXPECT_FALSE(inexistente.Inicia("Cotação"));
}

} // namespace
