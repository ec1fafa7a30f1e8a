#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

#include "common/contexto.h"
#include "common/log.h"
#include "common/portas.h"
#include "relogio_teste.h"

using namespace ztolvan;
using namespace ztolvan::teste;
namespace fs = std::filesystem;

namespace {

std::string Le(const fs::path& p) {
    std::ifstream f(p);
    return {std::istreambuf_iterator<char>(f), {}};
}

// An environment variable set for one test and put back afterwards.
class VariavelTemporaria {
  public:
    VariavelTemporaria(const char* nome, const char* valor) : nome_(nome) {
        if (const char* v = std::getenv(nome)) antigo_ = v;
        valor ? setenv(nome, valor, 1) : unsetenv(nome);
    }
    ~VariavelTemporaria() { antigo_ ? setenv(nome_, antigo_->c_str(), 1) : unsetenv(nome_); }

  private:
    const char* nome_;
    std::optional<std::string> antigo_;
};

class ComPastaDeLog : public ::testing::Test {
  protected:
    void SetUp() override {
        Contexto::Renova();
        mensagens = std::make_shared<MensagensGravadas>();
        PortasAtuais().mensagens = mensagens;
        pasta = fs::temp_directory_path() / ("ztolvan-log-" + std::to_string(getpid()) + "-" +
                                             ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(pasta);
        variavel.emplace("ZTOLVAN_LOG_DIR", pasta.c_str());
        // Wednesday, 31 January 2024: weekday 4.
        ParaORelogio(2024, 1, 31, 10, 20, 30);
    }
    void TearDown() override {
        variavel.reset();
        fs::remove_all(pasta);
        Contexto::Renova();
    }

    // Logs as the settings reader does; gives back the caller's text.
    Valor Grava(const Valor& texto, std::string projeto = "ztolvan") {
        Valor t = texto;
        std::string rotina = "LerConfig";
        GravaLog(t, projeto, rotina);
        return t;
    }

    fs::path pasta;
    std::optional<VariavelTemporaria> variavel;
    std::shared_ptr<MensagensGravadas> mensagens;
};

const std::string Linha = "31/01/2024 10:20:30 Rotina: LerConfig - Erro= falhou\n";

using GravaLogSemanal = ComPastaDeLog;

// A new file starts with "Inicio"; one changed today is added to; one changed
// before today (last week's Wednesday) starts afresh.
TEST_F(GravaLogSemanal, ArquivoNovoComecaComInicioDeHojeAcrescentaEDeAntesRecomeca) {
    const fs::path arquivo = pasta / "ztolvan_4.log";
    Grava("falhou");
    Grava("falhou");
    EXPECT_EQ(Le(arquivo), "31/01/2024 10:20:30 Inicio \n" + Linha + Linha);
    const std::pair<Instante, std::string> casos[] = {
        {InstanteLocal(2024, 1, 31, 0, 0, 5), "antes\n" + Linha},
        {InstanteLocal(2024, 1, 30, 23, 59, 59), Linha},
    };
    for (const auto& [alterado, esperado] : casos) {
        std::ofstream(arquivo) << "antes\n";
        const timespec ts{std::chrono::system_clock::to_time_t(alterado), 0}, tempos[2] = {ts, ts};
        ASSERT_EQ(utimensat(AT_FDCWD, arquivo.c_str(), tempos, 0), 0);
        Grava("falhou");
        EXPECT_EQ(Le(arquivo), esperado);
    }
}

TEST_F(GravaLogSemanal, CadaDiaDaSemanaTemOSeuArquivoEProjetoEmBrancoEProjAux) {
    ParaORelogio(2024, 1, 28); // Sunday
    Grava("domingo");
    ParaORelogio(2024, 2, 3); // Saturday
    Grava("sabado");
    std::string projeto = "   ", rotina = "R";
    Valor t = "x";
    GravaLog(t, projeto, rotina);
    EXPECT_NE(Le(pasta / "ztolvan_1.log").find("Erro= domingo"), std::string::npos);
    EXPECT_NE(Le(pasta / "ztolvan_7.log").find("Erro= sabado"), std::string::npos);
    EXPECT_EQ(Le(pasta / "ztolvan_7.log").find("domingo"), std::string::npos);
    EXPECT_NE(Le(pasta / "ProjAux_7.log").find("Erro= x"), std::string::npos);
    EXPECT_EQ(projeto, "   ");
}

TEST_F(GravaLogSemanal, PastaQueNaoPodeSerCriadaNaoLancaEOTextoGanhaOPrefixoMesmoAssim) {
    fs::create_directories(pasta);
    std::ofstream(pasta / "arquivo") << "";
    VariavelTemporaria impossivel("ZTOLVAN_LOG_DIR", (pasta / "arquivo" / "sub").c_str());
    Valor t;
    EXPECT_NO_THROW(t = Grava(42));
    EXPECT_EQ(t, Valor("Erro= 42"));
}

TEST(PastaDoLog, VariavelPropriaDepoisOEstadoDoUsuarioEDepoisACasa) {
    VariavelTemporaria casa("HOME", "/home/op");
    VariavelTemporaria estado("XDG_STATE_HOME", "/x/state");
    {
        VariavelTemporaria propria("ZTOLVAN_LOG_DIR", "/var/tmp/zlog");
        EXPECT_EQ(PastaLog(), "/var/tmp/zlog");
    }
    VariavelTemporaria semPropria("ZTOLVAN_LOG_DIR", nullptr);
    EXPECT_EQ(PastaLog(), "/x/state/veltra");
    VariavelTemporaria relativo("XDG_STATE_HOME", "relativo");
    EXPECT_EQ(PastaLog(), "/home/op/.local/state/veltra");
}

using GeraLog = ComPastaDeLog;

// Shown, critical, only when asked, and never written to a file; a system
// number outside the table reports its own failure even when nothing was to
// be shown.
TEST_F(GeraLog, ExibeQuandoPedidoEOsSistemasForaDaTabelaReportamAPropriaFalha) {
    sbGeraLog(0, "ztolvan", "1.0.1", "btnAlterar_Click", "5, Chamada inválida Linha: 30", "OPER", true, -1,
              "Erro");
    ASSERT_EQ(mensagens->Mostradas().size(), 1u);
    const MensagemMostrada& m = mensagens->Mostradas()[0];
    EXPECT_EQ(
        std::tie(m.Texto, m.Tipo, m.Titulo),
        std::make_tuple("Origem: ztolvan\rVersão: 1.0.1\rRotina: btnAlterar_Click\rMensagem: 5, Chamada "
                        "inválida Linha: 30",
                        16, "Erro"));
    for (int16_t s = -1; s <= 10; ++s) {
        mensagens->Limpa();
        EXPECT_NO_THROW(sbGeraLog(s, "o", "v", "r", "m", "u", false, s % 2, "t"));
        const bool aceito = s >= 0 && s < 10;
        ASSERT_EQ(mensagens->Mostradas().size(), aceito && s % 2 == 0 ? 0u : 1u) << s;
        if (mensagens->Mostradas().empty()) continue;
        const MensagemMostrada& m = mensagens->Mostradas()[0];
        EXPECT_EQ(m.Texto.rfind(aceito ? "Origem: " : "sbGeraLog, Linha: ", 0), 0u) << m.Texto;
        EXPECT_EQ(m.Tipo, 16);
    }
    EXPECT_FALSE(fs::exists(pasta));
}

} // namespace
