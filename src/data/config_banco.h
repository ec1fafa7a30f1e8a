#pragma once
#include <optional>
#include <string>

namespace ztolvan {

// The connection settings: an INI file with Servidor, Banco, USUARIO and
// Senha (any section, names in any case). Its path comes from
// ZTOLVAN_CONFIG, else $XDG_CONFIG_HOME/veltra/conexao.ini (~/.config when
// unset), else /etc/veltra/conexao.ini: the first that exists.
struct ConfigBanco {
    std::string Servidor;
    std::string Banco;
    std::string USUARIO;
    std::string Senha;

    static std::string Arquivo();
    // Settings given by the host program (its command line) stand in for
    // the file for the whole process; nullopt goes back to the file.
    static void DefineFixa(std::optional<ConfigBanco> c);
    // nullopt when no settings file can be read.
    static std::optional<ConfigBanco> Le();
    static std::optional<ConfigBanco> LeDe(const std::string& arquivo);
};

} // namespace ztolvan
