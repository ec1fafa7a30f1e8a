#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ztolvan {

// The result flag of a permission check: 0 lets the operation go on; any
// other value is a refusal, and the caller skips what it asked about.
namespace seguranca {
inline constexpr int16_t Autorizado = 0;
inline constexpr int16_t Recusado = 1;
// Codigo values: only look the right up, or also ask for an authorising
// operator when the operator lacks it.
inline constexpr int16_t SoConsulta = 0;
inline constexpr int16_t PedeAutorizacao = 1;
} // namespace seguranca

// The suite's security component: decides whether an operator may perform a
// function of a program, asking for an authorising operator when it must.
class PortaSeguranca {
  public:
    virtual ~PortaSeguranca() = default;
    // Fills Resultado (see seguranca::) and, when someone else authorised,
    // puts that operator in OperadorCopia.
    virtual void ZProcessa(int16_t Codigo, const std::string& Programa, const std::string& Funcao,
                           std::string& OperadorCopia, int16_t& Resultado, const std::string& TextoPassado,
                           const std::string& TextoSobrepoe) = 0;
    // The company the next checks are about.
    int16_t cEMPRESA = 0;
};

// Creates a security component; each thread creates its own on first use.
using FabricaSeguranca = std::function<std::shared_ptr<PortaSeguranca>()>;

// What a check asked, for tests.
struct ChecagemPedida {
    int16_t Codigo = 0;
    std::string Programa, Funcao, Operador, TextoPassado, TextoSobrepoe;
    int16_t Empresa = 0;
};

// Answers every check with fixed values and keeps what was asked.
class SegurancaGravada : public PortaSeguranca {
  public:
    void ZProcessa(int16_t Codigo, const std::string& Programa, const std::string& Funcao,
                   std::string& OperadorCopia, int16_t& Resultado, const std::string& TextoPassado,
                   const std::string& TextoSobrepoe) override;

    int16_t resultado = seguranca::Autorizado;
    // Put in the operator copy when not empty (someone else authorised).
    std::string autorizador;
    std::vector<ChecagemPedida> pedidas;
};

// The permission check. Creates the thread's security component on first use
// (through Portas::seguranca), sets its company when Empresa is given, runs
// the check, and then: OperadorAutorizador = the operator the component gave
// back; a blank Operador becomes that one; a blank OperadorAutorizador
// becomes Operador. Libera releases the component. The override text, or else
// the operator, is kept for the rest of the thread (OperadorLembrado). When
// there is no component or it fails, Resultado is a refusal. NaoUsado is
// accepted and ignored. Never throws.
void GLO_ChecaSeguranca(int16_t Codigo, const std::string& Programa, const std::string& Funcao,
                        std::string& Operador, std::string& OperadorAutorizador, int16_t& Resultado,
                        const std::string& TextoPassado, std::optional<int16_t> Empresa, bool Libera,
                        const std::string& TextoSobrepoe, const std::string& NaoUsado);

// What the last check of this thread left to remember: its override text when
// not blank, else its operator ("" before any check).
std::string OperadorLembrado();

} // namespace ztolvan
