// What a host sees from outside: the library loaded by name and the command
// line. Nothing of the core is linked in here.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <cstdio>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sqlite3.h>
#include <string>
#include <unistd.h>

#include "apoio/linha_de_comando.h"
#include "ztolvan/ztolvan.h"

namespace {


using namespace ztolvan::teste;

Saida Roda(const std::string& args) { return RodaLinhaDeComando(args, true); }

class Host : public ComBancoDemo {
  protected:
    void SetUp() override { Prepara("ztolvan-host-", true); }
};

// As text and as JSON, with the session; a database that cannot be opened
// and a malformed command line have exit codes of their own.
TEST_F(Host, ProcessaNoBancoDeDemonstracaoDevolveStatusDeUmaChamadaSemTelaOuCodigoDeSaida) {
    const std::pair<std::string, std::vector<const char*>> casos[] = {
        {" --empresa 1 --operador DEMO --opcao 0 --origem V --dados-vendas 5,0,0,SP,SP,SP,SP "
         "--mostrar-sessao",
         {"Zstatusret: 1\n", "zstatus: 0\n", "zstatusmens: \n", "  TipoPreco: 1\n", "  NatOper: 5\n"}},
        {" --origem F --tipo-preco 3 --json --mostrar-sessao",
         {"\"Zstatusret\": 1", "\"TipoPreco\": \"3\""}},
    };
    for (const auto& [args, trechos] : casos) {
        Saida s = Roda("processa --db " + banco + args);
        ASSERT_EQ(s.codigo, 0) << s.texto;
        for (const char* t : trechos)
            EXPECT_NE(s.texto.find(t), std::string::npos) << t << " in " << s.texto;
        EXPECT_EQ(s.texto.find("ZDadosVendas"), std::string::npos) << "not an answer while Zstatusret is 1";
    }
    EXPECT_EQ(Roda("processa --db " + (pasta / "nao-existe.db").string()).codigo, 2);
    EXPECT_NE(Roda("processa --opcao abc").codigo, 0);
    EXPECT_NE(Roda("").codigo, 0) << "a subcommand is required";
    EXPECT_EQ(Roda("--help").codigo, 0);
}

class Biblioteca : public Host {
  protected:
    void SetUp() override {
        Host::SetUp();
        if (HasFatalFailure()) return;
        const std::string ini = (pasta / "conexao.ini").string();
        std::ofstream(ini) << "Servidor=ACCESS\nBanco=" << banco << "\n";
        setenv("ZTOLVAN_CONFIG", ini.c_str(), 1);
        lib = dlopen(LIBZTOLVAN, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(lib, nullptr) << dlerror();
        const auto acha = [&](auto& f, const char* nome) {
            f = reinterpret_cast<decltype(+f)>(dlsym(lib, nome));
        };
        acha(cria, "zt_cria");
        acha(destroi, "zt_destroi");
        acha(processa, "zt_processa");
        acha(versao, "zt_versao");
        acha(simula, "zt_simula");
        ASSERT_TRUE(cria && destroi && processa && versao && simula);
    }
    void TearDown() override {
        if (lib) dlclose(lib);
        Host::TearDown();
    }
    void* lib = nullptr;
    decltype(&zt_cria) cria = nullptr;
    decltype(&zt_destroi) destroi = nullptr;
    decltype(&zt_processa) processa = nullptr;
    decltype(&zt_versao) versao = nullptr;
    decltype(&zt_simula) simula = nullptr;
};

TEST_F(Biblioteca, CarregadaPeloNomeProcessaComOMesmoContrato) {
    EXPECT_STREQ(versao(), "1.0.0001");
    zt_consultalista* c = cria();
    ASSERT_NE(c, nullptr);
    int16_t empresa = 1, opcao = 0, tpmov = 0, statusret = -1, zstatus = 7;
    int32_t codigo = 0, numdoc = 1;
    char mens[64] = "lixo";
    zt_valor dados[7] = {{ZT_INTEIRO, 5, 0, nullptr}, {ZT_TEXTO, 0, 0, "0"},  {ZT_INTEIRO, 0, 0, nullptr},
                         {ZT_TEXTO, 0, 0, "SP"},      {ZT_TEXTO, 0, 0, "SP"}, {ZT_TEXTO, 0, 0, "SP"},
                         {ZT_TEXTO, 0, 0, "SP"}};
    char saida[64] = "lixo";
    size_t tam = 99;
    auto chama = [&](int16_t* emp, const char* origem, zt_valor* d, size_t n) {
        return processa(c, emp, "DEMO", "", &opcao, &codigo, origem, &numdoc, &tpmov, &statusret, &zstatus,
                        mens, sizeof mens, d, n, saida, sizeof saida, &tam, nullptr, nullptr, nullptr);
    };
    ASSERT_EQ(chama(&empresa, "V", dados, 7), 0);
    EXPECT_EQ(std::make_tuple(statusret, zstatus, std::string(mens), tam), std::make_tuple(1, 0, "", 0u));
    // Origin F hands its data back even when no array came in.
    ASSERT_EQ(chama(&empresa, "F", nullptr, 0), 0);
    EXPECT_STREQ(saida, "");
    EXPECT_EQ(chama(nullptr, "V", dados, 7), -1);
    destroi(c);
}

// A host previews a sales order through the library: the JSON lines with
// their explanations, and nothing in the database; a buffer too small gets
// the full length; a row not in the grid is an error in the JSON.
TEST_F(Biblioteca, PreviaPelaEntradaCEmJsonSemDeixarNada) {
    zt_consultalista* c = cria();
    ASSERT_NE(c, nullptr);
    zt_valor dados[7] = {{ZT_INTEIRO, 5102, 0, nullptr}, {ZT_TEXTO, 0, 0, "1"},  {ZT_INTEIRO, 0, 0, nullptr},
                         {ZT_TEXTO, 0, 0, "SP"},         {ZT_TEXTO, 0, 0, "SP"}, {ZT_TEXTO, 0, 0, "SP"},
                         {ZT_TEXTO, 0, 0, "SP"}};
    std::string saida(64 * 1024, '\0');
    size_t tam = 0;
    ASSERT_EQ(simula(c, 1, "DEMO", "V", 1, 0, dados, 7, "000101", "1,2", 2, 0, saida.data(), saida.size(), &tam), 0);
    const nlohmann::json j = nlohmann::json::parse(saida.c_str(), nullptr, false);
    ASSERT_FALSE(j.is_discarded()) << saida.c_str();
    EXPECT_EQ(tam, std::strlen(saida.c_str()));
    EXPECT_EQ(j["simulacao"], true);
    EXPECT_EQ(j["Zstatusret"], 0);
    ASSERT_EQ(j["linhas"].size(), 2u);
    EXPECT_EQ(j["linhas"][0]["Produto"], "1001");
    EXPECT_EQ(j["linhas"][0]["Quantidade"], 2.0);
    EXPECT_EQ(j["linhas"][0]["explicacao"]["preco"], "valor do agrupamento");
    EXPECT_DOUBLE_EQ(j["total"].get<double>(), 2 * 24.9 + 4 * 8.49);
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(banco.c_str(), &db), SQLITE_OK);
    sqlite3_stmt* st = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(db, "SELECT COUNT(*) FROM TBPEVIT", -1, &st, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_step(st), SQLITE_ROW);
    EXPECT_EQ(sqlite3_column_int(st, 0), 0) << "a preview leaves nothing";
    sqlite3_finalize(st);
    sqlite3_close(db);

    char pouco[16];
    size_t inteiro = 0;
    ASSERT_EQ(simula(c, 1, "DEMO", "V", 1, 0, dados, 7, "000101", "1", 1, 0, pouco, sizeof pouco, &inteiro), 0);
    EXPECT_EQ(std::strlen(pouco), sizeof pouco - 1);
    EXPECT_GT(inteiro, sizeof pouco);
    ASSERT_EQ(simula(c, 1, "DEMO", "V", 1, 0, dados, 7, "000101", "99", 1, 0, saida.data(), saida.size(), &tam), 0);
    EXPECT_NE(std::string(saida.c_str()).find("\"erro\""), std::string::npos) << saida.c_str();
    EXPECT_EQ(simula(c, 1, nullptr, "V", 1, 0, dados, 7, "000101", "", 1, 0, nullptr, 0, nullptr), -1);
    destroi(c);
}

} // namespace
