#include "data/config_banco.h"

#include <cstdlib>
#include <filesystem>
#include <ini.h>
#include <mutex>

#include "common/texto.h"

namespace ztolvan {
namespace {

int Coleta(void* user, const char*, const char* nome, const char* valor) {
    auto* c = static_cast<ConfigBanco*>(user);
    const std::string n = Maiusculas(nome);
    const std::string v = valor ? valor : "";
    if (n == "SERVIDOR")
        c->Servidor = v;
    else if (n == "BANCO")
        c->Banco = v;
    else if (n == "USUARIO")
        c->USUARIO = v;
    else if (n == "SENHA")
        c->Senha = v;
    return 1;
}

std::mutex trava;
std::optional<ConfigBanco> fixa;

} // namespace

void ConfigBanco::DefineFixa(std::optional<ConfigBanco> c) {
    std::lock_guard g(trava);
    fixa = std::move(c);
}

std::string ConfigBanco::Arquivo() {
    if (const char* p = std::getenv("ZTOLVAN_CONFIG"); p && *p) return p;
    std::string xdg;
    if (const char* p = std::getenv("XDG_CONFIG_HOME"); p && *p)
        xdg = p;
    else if (const char* h = std::getenv("HOME"); h && *h)
        xdg = std::string(h) + "/.config";
    if (!xdg.empty()) {
        std::string f = xdg + "/veltra/conexao.ini";
        std::error_code ec;
        if (std::filesystem::exists(f, ec)) return f;
    }
    return "/etc/veltra/conexao.ini";
}

std::optional<ConfigBanco> ConfigBanco::LeDe(const std::string& arquivo) {
    ConfigBanco c;
    if (ini_parse(arquivo.c_str(), Coleta, &c) != 0) return std::nullopt;
    return c;
}

std::optional<ConfigBanco> ConfigBanco::Le() {
    {
        std::lock_guard g(trava);
        if (fixa) return fixa;
    }
    return LeDe(Arquivo());
}

} // namespace ztolvan
