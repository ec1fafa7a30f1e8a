#pragma once
#include <map>
#include <optional>
#include <string>

#include "common/valor.h"

namespace ztolvan {

// The machine-wide settings store: the registry key of the suite, here a
// flat file of name=value lines (path from VELTRA_INI, else
// /etc/quessor/veltra/ini) that stands for the key "software\quessor\veltra\ini".
inline constexpr const char* ChaveVeltra = "software\\quessor\\veltra\\ini";
inline constexpr const char* RaizMaquina = "HKEY_LOCAL_MACHINE";

class ArmazemMaquina {
  public:
    virtual ~ArmazemMaquina() = default;
    // The values of key 'caminho' under 'raiz'; nullopt when the key cannot be opened.
    virtual std::optional<std::map<std::string, std::string>> AbreChave(const std::string& raiz,
                                                                        const std::string& caminho) = 0;
};

class ArmazemArquivoIni : public ArmazemMaquina {
  public:
    explicit ArmazemArquivoIni(std::string arquivo) : arquivo_(std::move(arquivo)) {}
    static std::string ArquivoPadrao();
    std::optional<std::map<std::string, std::string>> AbreChave(const std::string& raiz,
                                                                const std::string& caminho) override;

  private:
    std::string arquivo_;
};

class ArmazemMemoria : public ArmazemMaquina {
  public:
    std::optional<std::map<std::string, std::string>> AbreChave(const std::string& raiz,
                                                                const std::string& caminho) override;
    std::map<std::string, std::string> valores;
    bool existe = true;
};

// Reads value 'nome' of key 'caminho' through the thread's store. Achou tells
// whether the key could be opened; an empty value gives Padrao when one was given.
Valor LerRegistro(const std::string& Raiz, const std::string& Caminho, const std::string& Nome,
                  const Valor& Padrao, int16_t& Achou);

} // namespace ztolvan
