#include "common/log.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/conversao.h"
#include "common/datas.h"
#include "common/erro.h"
#include "common/mensagens.h"
#include "common/texto.h"

namespace ztolvan {
namespace {

std::string Ambiente(const char* nome) {
    const char* v = std::getenv(nome);
    return v ? v : "";
}

std::string PastaPessoal() {
    std::string home = Ambiente("HOME");
    if (!home.empty()) return home;
    struct passwd pw {};
    struct passwd* achou = nullptr;
    char buf[4096];
    if (getpwuid_r(getuid(), &pw, buf, sizeof buf, &achou) == 0 && achou && achou->pw_dir)
        return achou->pw_dir;
    return ".";
}

// The local date of the file's last change, as DataHora::Chave; 0 when the
// file is not there.
long ChaveDaUltimaAlteracao(const std::filesystem::path& caminho) {
    struct stat st {};
    if (::stat(caminho.c_str(), &st) != 0) return 0;
    return ParaDataHora(std::chrono::system_clock::from_time_t(st.st_mtime)).Chave();
}

} // namespace

std::string PastaLog() {
    if (std::string p = Ambiente("ZTOLVAN_LOG_DIR"); !p.empty()) return p;
    // A relative XDG_STATE_HOME is invalid by its own rules and is ignored.
    if (std::string x = Ambiente("XDG_STATE_HOME"); !x.empty() && x.front() == '/') return x + "/veltra";
    return PastaPessoal() + "/.local/state/veltra";
}

void GravaLog(Valor& Texto, std::string& Projeto, std::string& Rotina) {
    // Every step runs whatever became of the one before: a log that cannot be
    // written must not cost the caller anything, and Texto changes anyway.
    std::ofstream arquivo;
    std::string momento;
    try {
        const DataHora agora = Agora();
        momento = DataHoraTexto(agora);
        const std::string projeto = Apara(Projeto).empty() ? std::string("ProjAux") : Projeto;
        const std::filesystem::path pasta = PastaLog();
        std::error_code ec;
        std::filesystem::create_directories(pasta, ec);
        const auto caminho = pasta / (projeto + "_" + std::to_string(agora.DiaDaSemana) + ".log");
        const long alterado = ChaveDaUltimaAlteracao(caminho);
        if (alterado == 0) {
            std::ofstream(caminho) << momento << " Inicio " << '\n';
            arquivo.open(caminho, std::ios::app);
        } else if (alterado < agora.Chave()) {
            arquivo.open(caminho, std::ios::trunc);
        } else {
            arquivo.open(caminho, std::ios::app);
        }
    } catch (...) {
    }
    try {
        Texto = Valor("Erro= " + CStr(Texto));
    } catch (...) {
    }
    try {
        if (arquivo.is_open()) arquivo << momento << " Rotina: " << Rotina << " - " << CStr(Texto) << '\n';
    } catch (...) {
    }
}

void sbGeraLog(int16_t Sistema, const std::string& Origem, const std::string& Versao,
               const std::string& Rotina, const std::string& Mensagem,
               [[maybe_unused]] const std::string& Usuario, [[maybe_unused]] bool Erro, int16_t Exibe,
               const std::string& Titulo) {
    int linha = 0;
    try {
        linha = 10;
        // The name would head a file log entry; that log stays off, but a
        // number outside the table is still the caller's fault to report.
        if (Sistema < 0 || static_cast<size_t>(Sistema) >= SistemasDaSuite.size())
            throw ErroExecucao::SubscritoForaDoIntervalo();
        linha = 20;
        if (Exibe != 0) {
            const std::string cr(1, '\r');
            MostraMensagem("Origem: " + Origem + cr + "Versão: " + Versao + cr + "Rotina: " + Rotina + cr +
                               "Mensagem: " + Mensagem,
                           msg::Critico, Titulo);
        }
    } catch (const ErroExecucao& e) {
        MostraMensagem("sbGeraLog, Linha: " + std::to_string(linha) + " - " + TextoDecimal(e.Numero()) +
                           ", " + e.Descricao(),
                       msg::Critico, Titulo);
    } catch (const std::exception& e) {
        MostraMensagem("sbGeraLog, Linha: " + std::to_string(linha) + " - " + e.what(), msg::Critico, Titulo);
    } catch (...) {
    }
}

} // namespace ztolvan
