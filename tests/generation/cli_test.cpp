// "ztolvan gerar" on the demo database, as a script would run it: exit
// codes, the JSON answer, and what reached the database.
#include <gtest/gtest.h>

#include "apoio/linha_de_comando.h"
#include "apoio/pdf.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sqlite3.h>
#include <string>
#include <unistd.h>

namespace {


using namespace ztolvan::teste;

Saida Roda(const std::string& args) { return RodaLinhaDeComando(args, false); }

class Gerar : public ComBancoDemo {
  protected:
    void SetUp() override { Prepara("ztolvan-gerar-", false); }

    nlohmann::json Gera(const std::string& args, int esperado) {
        Saida s = Roda("gerar --db " + banco + " --empresa 1 --json " + args);
        EXPECT_EQ(s.codigo, esperado) << s.texto;
        return nlohmann::json::parse(s.texto, nullptr, false);
    }
    void Direto(const std::string& sql) {
        sqlite3* db = nullptr;
        ASSERT_EQ(sqlite3_open(banco.c_str(), &db), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
        sqlite3_close(db);
    }
    // The rows of a statement, tab-separated, through the dispatcher.
    std::string Consulta(const std::string& sql) {
        Saida s = Roda("consulta --db " + banco + " \"" + sql + "\"");
        std::string linhas;
        size_t ini = s.texto.find('\n') + 1; // after PREPARE
        ini = s.texto.find('\n', ini) + 1;   // after OPEN
        const size_t fim = s.texto.find("NEXT:");
        return s.texto.substr(ini, fim - ini);
    }
};

const std::string Venda = "--origem V --numdoc 1 --dados-vendas 5102,1,0,SP,SP,SP,SP --agrupamento 000101 ";

TEST_F(Gerar, VendaComLinhasQuantidadeEMultiplicador) {
    // A preview writes nothing and shows the lines the real run then writes.
    const std::string pedido = "--operador DEMO " + Venda + "--itens 1,2,3 --quantidade 2=3 --multiplicador 2";
    const nlohmann::json previa = Gera(pedido + " --simular", 0);
    EXPECT_EQ(Consulta("SELECT COUNT(*) FROM TBPEVIT WHERE NumPed = 1"), "0\n");
    EXPECT_EQ(previa["simulacao"], true);
    nlohmann::json j = Gera(pedido, 0);
    ASSERT_TRUE(j.is_object());
    EXPECT_EQ(j["linhas"], previa["linhas"]);
    EXPECT_EQ(previa["itens"], j["itens"]);
    EXPECT_DOUBLE_EQ(j["total"].get<double>(), 144.54) << "2 x 24,90 + 6 x 8,49 + 2 x 21,90";
    // Each line explains itself, the preview's as the real run's.
    EXPECT_EQ(j["linhas"][0]["explicacao"]["preco"], "valor do agrupamento");
    EXPECT_EQ(j["linhas"][0]["explicacao"]["rota"], "situação do produto");
    EXPECT_EQ(j["Zstatusret"], 0);
    EXPECT_EQ(j["zstatus"], 0);
    EXPECT_EQ(j["itens"], nlohmann::json::parse("[10, 20, 30]"));
    EXPECT_TRUE(j["mensagens"].empty()) << j["mensagens"];
    // Row 2's quantity became 3, times the multiplier.
    EXPECT_EQ(Consulta("SELECT Item, QtdMat FROM TBPEVIT WHERE NumPed = 1 AND Item = 20"), "20\t6\n");
    EXPECT_EQ(Consulta("SELECT COUNT(*) FROM TBPEVDC WHERE NUMPED = 1"), "3\n") << "DEMO has cascade on";

    // Every row of a sales order starts marked; the one out of stock asks.
    j = Gera("--operador DEMO " + Venda, 0);
    ASSERT_EQ(j["mensagens"].size(), 1u);
    EXPECT_EQ(j["mensagens"][0]["Titulo"], "Itens em Falta");
    EXPECT_EQ(j["mensagens"][0]["Tipo"], 4);
    EXPECT_EQ(j["itens"].size(), 12u) << "answered no: 13 rows less the one without stock";
    EXPECT_EQ(j["itens"][0], 40);
    // With no stock at all, Yes needs the right: DEMO lacks it, SUPERVISOR has it.
    Direto("UPDATE TBMAT SET QtdItAtu = 0 WHERE Empresa = 1");
    j = Gera("--operador DEMO --resposta sim " + Venda + "--itens 5", 4);
    EXPECT_EQ(j["mensagens"].size(), 1u);
    j = Gera("--operador SUPERVISOR --resposta sim " + Venda + "--itens 5", 0);
    EXPECT_EQ(j["itens"], nlohmann::json::parse("[160]")) << j["mensagens"];
}

TEST_F(Gerar, CompraEDocumentoESaidasSemItens) {
    nlohmann::json j = Gera("--operador DEMO --origem C --numdoc 1 --dados-vendas 1102,101 "
                            "--agrupamento 000101",
                            4);
    EXPECT_EQ(j["Zstatusret"], 1);
    EXPECT_EQ(j["itens"], nlohmann::json::array());
    ASSERT_EQ(j["mensagens"].size(), 1u);
    EXPECT_EQ(j["mensagens"][0]["Texto"], "Deve-se selecionar algum Produto");

    j = Gera("--operador DEMO --origem C --numdoc 1 --dados-vendas 1102,101 --agrupamento 000103 "
             "--itens todos",
             0);
    EXPECT_EQ(j["itens"].size(), 7u);
    EXPECT_EQ(Consulta("SELECT COUNT(*) FROM TBPECIT WHERE NumPed = 1 AND CodFor = 101"), "7\n");

    j = Gera("--operador DEMO --origem D --numdoc 1 --tpmov 2 --dados-vendas 5102,1,0,SP,SP,SP,SP "
             "--agrupamento 000103 --itens nenhum",
             4);
    j = Gera("--operador DEMO --origem D --numdoc 1 --tpmov 2 --dados-vendas 5102,1,0,SP,SP,SP,SP "
             "--agrupamento 000103 --itens 7,1",
             0);
    EXPECT_EQ(j["itens"], nlohmann::json::parse("[100, 200]"));

    j = Gera("--operador DEMO --origem D --numdoc 1 --dados-vendas 5102,1,0,SP,SP,SP,SP "
             "--agrupamento NAOEXISTE",
             4);
    ASSERT_FALSE(j["mensagens"].empty());
    EXPECT_EQ(j["mensagens"][0]["Texto"], "Agrupamento Inexistente");
    // Without the sales data ZProcessa reports its failure and no screen opens.
    j = Gera("--operador DEMO --origem D --numdoc 1 --agrupamento 000103 --itens todos", 4);
    ASSERT_EQ(j["mensagens"].size(), 1u);
    EXPECT_EQ(j["mensagens"][0]["Texto"], "Atenção! erro não previsto na função - ZProcessa");
    EXPECT_EQ(j["mensagens"][0]["Detalhe"],
              "Erro na linha : 30 - ZDadosVendas não é um vetor na função ZProcessa no Formulário consultalista")
        << "the trapped error's line and cause, not only on stderr";

    EXPECT_EQ(Roda("gerar --db " + banco + " --empresa 1 --operador DEMO " + Venda + "--itens 0").codigo, 5);
    EXPECT_EQ(
        Roda("gerar --db " + banco + " --empresa 1 --operador DEMO " + Venda + "--quantidade 99=1").codigo,
        5);
    EXPECT_NE(Roda("gerar --db " + banco +
                   " --empresa 1 --operador DEMO --origem P --numdoc 1 "
                   "--agrupamento 000101")
                  .codigo,
              0);
    EXPECT_EQ(
        Roda("gerar --db " + (pasta / "nao.db").string() + " --empresa 1 --operador DEMO " + Venda).codigo,
        2);
}

// "ztolvan disponibilidade": the screen's count item by item, on the rows
// asked; a grouping that is not there has its exit code.
TEST_F(Gerar, DisponibilidadePorItemComOsLimitantes) {
    Direto("UPDATE TBMAT SET QtdItBloq = 5 WHERE Empresa = 1 AND CodItem = '1002'");
    const std::string base = "disponibilidade --db " + banco + " --empresa 1 --operador DEMO --agrupamento 000101";
    Saida s = Roda(base + " --itens 1,2 --json");
    ASSERT_EQ(s.codigo, 0) << s.texto;
    const nlohmann::json j = nlohmann::json::parse(s.texto, nullptr, false);
    ASSERT_FALSE(j.is_discarded()) << s.texto;
    // Beans: 57 − 5 = 52 free, 2 each: 26; rice: 20 free, 1 each: 20.
    EXPECT_EQ(j["agrupamentos"], 20);
    ASSERT_EQ(j["itens"].size(), 2u);
    EXPECT_EQ(j["itens"][1]["livre"], 52.0);
    EXPECT_EQ(j["itens"][1]["permite"], 26);
    EXPECT_EQ(j["itens"][0]["limitante"], true);
    EXPECT_EQ(j["texto"], "Estoque atende 20 agrupamentos completos; limitado por Arroz agulhinha tipo 1 5kg");
    s = Roda(base);
    EXPECT_NE(s.texto.find("limitado por Óleo de soja 900ml e Farinha de trigo 1kg"), std::string::npos) << s.texto;
    EXPECT_EQ(Roda(base + "X").codigo, 4);
    EXPECT_EQ(Roda(base + " --itens 99").codigo, 5);
}

// "ztolvan cotacao": the screen's print layout into a PDF, read back page
// by page; what cannot be quoted or printed leaves no file behind.
TEST_F(Gerar, CotacaoEmPdfQuebraEm55ItensPorPagina) {
    Direto(SqlAgrupamentoSessentaItens);
    const std::string pdf = (pasta / "cotacao.pdf").string();
    const std::string base = "cotacao --db " + banco + " --empresa 1 --operador DEMO ";
    Saida s = Roda(base + "--agrupamento COT60 --titulo Teste --rodape 'Válida por 7 dias' --pdf " + pdf);
    ASSERT_EQ(s.codigo, 0) << s.texto;
    EXPECT_NE(s.texto.find("com 60 itens enviada para o arquivo " + pdf), std::string::npos) << s.texto;
    const std::vector<std::string> paginas = PaginasDoPdf(pdf);
    ASSERT_EQ(paginas.size(), 2u);
    EXPECT_EQ(ItensDaPagina(paginas[0]), Sequencia(1, 55));
    EXPECT_EQ(ItensDaPagina(paginas[1]), Sequencia(56, 60));
    for (const std::string& p : paginas) EXPECT_NE(p.find("Cotação - Sessenta itens(Teste)"), std::string::npos);
    EXPECT_NE(paginas[1].find("Válida por 7 dias"), std::string::npos);
    EXPECT_EQ(paginas[0].find("Total Geral"), std::string::npos) << "the total closes the last page";

    s = Roda(base + "--agrupamento 000101 --itens 2,4 --pdf " + pdf);
    ASSERT_EQ(s.codigo, 0) << s.texto;
    ASSERT_EQ(PaginasDoPdf(pdf).size(), 1u);
    EXPECT_EQ(ItensDaPagina(PaginasDoPdf(pdf)[0]), Sequencia(1, 2));

    const std::string outro = (pasta / "nao.pdf").string();
    EXPECT_EQ(Roda(base + "--agrupamento NAOEXISTE --pdf " + outro).codigo, 4);
    EXPECT_EQ(Roda(base + "--agrupamento 000101 --itens 0 --pdf " + outro).codigo, 5);
    EXPECT_EQ(Roda(base + "--agrupamento 000101 --pdf " + (pasta / "sem/pasta.pdf").string()).codigo, 6);
    EXPECT_FALSE(std::filesystem::exists(outro));
}

} // namespace
