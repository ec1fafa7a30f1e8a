#pragma once
// The host command line run as a separate process, over a demo database of
// its own: what the command-line tests share. ZTOLVAN_CLI names the program.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace ztolvan::teste {

struct Saida {
    int codigo = -1;
    std::string texto;
};

// Runs a shell command; its exit code and what it printed.
inline Saida Executa(const std::string& cmd) {
    Saida s;
    FILE* p = popen(cmd.c_str(), "r");
    std::array<char, 4096> buf{};
    while (p && fgets(buf.data(), buf.size(), p))
        s.texto += buf.data();
    const int st = p ? pclose(p) : -1;
    s.codigo = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
    return s;
}

#ifdef ZTOLVAN_CLI
// Runs "ztolvan <args>"; stderr joins the text, or is dropped.
inline Saida RodaLinhaDeComando(const std::string& args, bool comErros) {
    return Executa(std::string(ZTOLVAN_CLI) + " " + args + (comErros ? " 2>&1" : " 2>/dev/null"));
}

// A fresh folder with a demo database made by the command line itself.
class ComBancoDemo : public ::testing::Test {
  protected:
    void Prepara(const std::string& prefixo, bool comErros) {
        pasta = std::filesystem::temp_directory_path() /
                (prefixo + std::to_string(getpid()) + "-" +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(pasta);
        banco = (pasta / "demo.db").string();
        setenv("ZTOLVAN_LOG_DIR", pasta.c_str(), 1);
        for (const char* passo : {"init", "seed"}) {
            Saida s = RodaLinhaDeComando(std::string(passo) + " --db " + banco, comErros);
            ASSERT_EQ(s.codigo, 0) << passo << ": " << s.texto;
        }
    }
    void TearDown() override { std::filesystem::remove_all(pasta); }

    std::filesystem::path pasta;
    std::string banco;
};

#endif

} // namespace ztolvan::teste
