// The Qt printer: the quotation's pages in the PDF it wrote, read back. F4
// and its title dialog are the screens' tests; the whole print through this
// printer, page by page, is the command line's.
#include <filesystem>
#include <regex>
#include <unistd.h>

#include "apoio/banco_teste.h"
#include "apoio/pdf.h"
#include "data/schema/esquema.h"
#include "entry/sessao.h"
#include "generation/cotacao/cotacao.h"
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
