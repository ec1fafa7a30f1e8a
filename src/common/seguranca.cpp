#include "common/seguranca.h"

#include "common/contexto.h"
#include "common/portas.h"
#include "common/texto.h"

namespace ztolvan {
namespace {

struct EstadoSeguranca {
    std::shared_ptr<PortaSeguranca> componente;
    std::string lembrado;
};

EstadoSeguranca& Estado() { return Contexto::Atual().Parte<EstadoSeguranca>(); }

} // namespace

void SegurancaGravada::ZProcessa(int16_t Codigo, const std::string& Programa, const std::string& Funcao,
                                 std::string& OperadorCopia, int16_t& Resultado,
                                 const std::string& TextoPassado, const std::string& TextoSobrepoe) {
    pedidas.push_back({Codigo, Programa, Funcao, OperadorCopia, TextoPassado, TextoSobrepoe, cEMPRESA});
    Resultado = resultado;
    if (!autorizador.empty()) OperadorCopia = autorizador;
}

void GLO_ChecaSeguranca(int16_t Codigo, const std::string& Programa, const std::string& Funcao,
                        std::string& Operador, std::string& OperadorAutorizador, int16_t& Resultado,
                        const std::string& TextoPassado, std::optional<int16_t> Empresa, bool Libera,
                        const std::string& TextoSobrepoe, [[maybe_unused]] const std::string& NaoUsado) {
    std::string copia = Operador;
    try {
        EstadoSeguranca& e = Estado();
        if (!e.componente) {
            auto& fabrica = PortasAtuais().seguranca;
            if (fabrica) e.componente = fabrica();
        }
        // Without a component nobody can authorise: the operation is refused.
        if (!e.componente) {
            Resultado = seguranca::Recusado;
        } else {
            if (Empresa) e.componente->cEMPRESA = *Empresa;
            e.componente->ZProcessa(Codigo, Programa, Funcao, copia, Resultado, TextoPassado, TextoSobrepoe);
        }
    } catch (...) {
        Resultado = seguranca::Recusado;
    }
    try {
        OperadorAutorizador = copia;
        if (Apara(Operador).empty()) Operador = copia;
        if (Apara(OperadorAutorizador).empty()) OperadorAutorizador = Operador;
        EstadoSeguranca& e = Estado();
        if (Libera) e.componente.reset();
        e.lembrado = Apara(TextoSobrepoe).empty() ? Operador : TextoSobrepoe;
    } catch (...) {
    }
}

std::string OperadorLembrado() {
    try {
        return Estado().lembrado;
    } catch (...) {
        return {};
    }
}

} // namespace ztolvan
