#include "componente/componente.h"

#include <cstdlib>
#include <mutex>

#include "entry/telas_componente.h"
#include "generation/cotacao/cotacao.h"
#include "generation/geracao.h"
#include "screens/auxiliary/tolvanf08.h"
#include "screens/instala.h"
#ifdef ZTOLVAN_COM_QT
#include "ui/qt/comum_qt.h"
#include "ui/qt/impressora_qt.h"
#include "ui/qt/instala_qt.h"
#endif

namespace ztolvan {
namespace {

bool JanelasDisponiveis() {
    const char* sem = std::getenv("ZTOLVAN_SEM_TELAS");
    if (sem && *sem && std::string(sem) != "0") return false;
#ifdef ZTOLVAN_COM_QT
    static std::once_flag uma;
    static bool instaladas = false;
    std::call_once(uma, [] { instaladas = InstalaQt(); });
    return instaladas;
#else
    return false;
#endif
}

} // namespace

void InstalaComponente() {
    static std::once_flag uma;
    try {
        std::call_once(uma, [] {
            InstalaGeracao();
            InstalaCotacao();
            InstalaManutencao();
            DefineFabricaTelas([]() -> std::unique_ptr<TelasComponente> {
                if (!JanelasDisponiveis()) return nullptr;
                return CriaTelasDoComponente();
            });
        });
    } catch (...) {
    }
}

std::shared_ptr<PortaImpressora> NovaImpressoraPdf(const std::string& arquivo) {
#ifdef ZTOLVAN_COM_QT
    try {
        if (InstalaImpressoraQt()) return std::make_shared<ImpressoraQt>(QString(), Q(arquivo));
    } catch (...) {
    }
#else
    (void)arquivo;
#endif
    return nullptr;
}

} // namespace ztolvan
