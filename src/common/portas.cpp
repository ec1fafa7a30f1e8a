#include "common/portas.h"

#include <mutex>

#include "common/contexto.h"

namespace ztolvan {
namespace {

std::mutex trava;

// Built on first use, so that a factory installed while a library loads
// survives the rest of its load-time setup.
std::function<Portas()>& Fabrica() {
    static std::function<Portas()> f;
    return f;
}

struct EstadoPortas {
    Portas portas;
    bool preenchidas = false;
};

} // namespace

void DefineFabricaPortas(std::function<Portas()> f) {
    std::lock_guard g(trava);
    Fabrica() = std::move(f);
}

Portas& PortasAtuais() {
    auto& e = Contexto::Atual().Parte<EstadoPortas>();
    if (!e.preenchidas) {
        {
            std::lock_guard g(trava);
            if (Fabrica()) e.portas = Fabrica()();
        }
        if (!e.portas.mensagens) {
            auto m = std::make_shared<MensagensGravadas>();
            m->ecoStderr = true;
            e.portas.mensagens = m;
        }
        if (!e.portas.armazem)
            e.portas.armazem = std::make_shared<ArmazemArquivoIni>(ArmazemArquivoIni::ArquivoPadrao());
        if (!e.portas.telas) e.portas.telas = std::make_shared<TelasSemJanela>();
        e.preenchidas = true;
    }
    return e.portas;
}

} // namespace ztolvan
