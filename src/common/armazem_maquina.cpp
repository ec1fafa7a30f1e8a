#include "common/armazem_maquina.h"

#include <cstdlib>
#include <ini.h>

#include "common/portas.h"
#include "common/texto.h"

namespace ztolvan {
namespace {

bool ChaveVeltraPedida(const std::string& raiz, const std::string& caminho) {
    (void)raiz;
    return IguaisSemCaixa(caminho, ChaveVeltra);
}

int Coleta(void* user, const char*, const char* nome, const char* valor) {
    auto* m = static_cast<std::map<std::string, std::string>*>(user);
    (*m)[Maiusculas(nome)] = valor ? valor : "";
    return 1;
}

} // namespace

std::string ArmazemArquivoIni::ArquivoPadrao() {
    if (const char* p = std::getenv("VELTRA_INI"); p && *p) return p;
    return "/etc/quessor/veltra/ini";
}

std::optional<std::map<std::string, std::string>> ArmazemArquivoIni::AbreChave(const std::string& raiz,
                                                                               const std::string& caminho) {
    if (!ChaveVeltraPedida(raiz, caminho)) return std::nullopt;
    std::map<std::string, std::string> valores;
    if (ini_parse(arquivo_.c_str(), Coleta, &valores) < 0) return std::nullopt;
    return valores;
}

std::optional<std::map<std::string, std::string>> ArmazemMemoria::AbreChave(const std::string& raiz,
                                                                            const std::string& caminho) {
    if (!existe || !ChaveVeltraPedida(raiz, caminho)) return std::nullopt;
    std::map<std::string, std::string> r;
    for (auto& [k, v] : valores)
        r[Maiusculas(k)] = v;
    return r;
}

Valor LerRegistro(const std::string& Raiz, const std::string& Caminho, const std::string& Nome,
                  const Valor& Padrao, int16_t& Achou) {
    Achou = 0;
    Valor resultado = std::string();
    try {
        auto chave = PortasAtuais().armazem->AbreChave(Raiz, Caminho);
        if (chave) {
            Achou = -1;
            auto it = chave->find(Maiusculas(Nome));
            if (it != chave->end()) resultado = it->second;
        }
    } catch (...) {
        // A store that cannot be read counts as a missing key.
    }
    if (resultado.texto().empty() && !Padrao.vazio()) return Padrao;
    return resultado;
}

} // namespace ztolvan
