#include "entry/telas_componente.h"

#include <mutex>

#include "common/contexto.h"
#include "common/mensagens.h"

namespace ztolvan {
namespace {

std::mutex trava;

// Built on first use: the library's own load-time setup installs it, and a
// namespace-scope object could be initialised after that and wipe it.
std::function<std::unique_ptr<TelasComponente>()>& Fabrica() {
    static std::function<std::unique_ptr<TelasComponente>()> f;
    return f;
}

class TelasIndisponiveis : public TelasComponente {
  public:
    void MostraConsulta() override { Avisa("TolvanF01 (consulta de agrupamentos)"); }
    void MostraPrecos() override { Avisa("TolvanF07 (consulta de preços)"); }

  private:
    static void Avisa(const std::string& tela) {
        MostraMensagem("A tela " + tela + " não está disponível neste programa.", msg::Informacao, "AVISO");
    }
};

struct EstadoTelas {
    std::unique_ptr<TelasComponente> telas;
};

} // namespace

void DefineFabricaTelas(std::function<std::unique_ptr<TelasComponente>()> f) {
    std::lock_guard g(trava);
    Fabrica() = std::move(f);
}

TelasComponente& TelasAtuais() {
    auto& e = Contexto::Atual().Parte<EstadoTelas>();
    if (!e.telas) {
        {
            std::lock_guard g(trava);
            if (Fabrica()) e.telas = Fabrica()();
        }
        if (!e.telas) e.telas = std::make_unique<TelasIndisponiveis>();
    }
    return *e.telas;
}

} // namespace ztolvan
