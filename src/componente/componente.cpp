#include "componente/componente.h"

#include <cstdlib>
#include <dlfcn.h>
#include <mutex>
#include <string>

#include "entry/telas_componente.h"
#include "generation/cotacao/cotacao.h"
#include "generation/geracao.h"
#include "screens/auxiliary/tolvanf08.h"
#include "screens/instala.h"

namespace ztolvan {
namespace {

// The screens module, loaded once from beside this library (or by name):
// the core needs Qt only when a call asks for a window or a printer.
struct ModuloTelas {
    bool (*instala)() = nullptr;
    PortaImpressora* (*impressoraPdf)(const char*) = nullptr;
};

const ModuloTelas* Modulo() {
    static std::once_flag uma;
    static ModuloTelas m;
    static bool carregado = false;
    std::call_once(uma, [] {
        std::string caminho = "libztolvan-telas.so.1";
        Dl_info info{};
        if (dladdr(reinterpret_cast<void*>(&InstalaComponente), &info) && info.dli_fname) {
            const std::string eu = info.dli_fname;
            const size_t barra = eu.rfind('/');
            if (barra != std::string::npos) caminho = eu.substr(0, barra + 1) + caminho;
        }
        void* h = dlopen(caminho.c_str(), RTLD_NOW | RTLD_GLOBAL);
        if (!h) h = dlopen("libztolvan-telas.so.1", RTLD_NOW | RTLD_GLOBAL);
        if (!h) return;
        m.instala = reinterpret_cast<bool (*)()>(dlsym(h, "zt_telas_instala"));
        m.impressoraPdf = reinterpret_cast<PortaImpressora* (*)(const char*)>(dlsym(h, "zt_telas_impressora_pdf"));
        carregado = m.instala && m.impressoraPdf;
    });
    return carregado ? &m : nullptr;
}

bool JanelasDisponiveis() {
    const char* sem = std::getenv("ZTOLVAN_SEM_TELAS");
    if (sem && *sem && std::string(sem) != "0") return false;
    static std::once_flag uma;
    static bool instaladas = false;
    std::call_once(uma, [] {
        const ModuloTelas* m = Modulo();
        instaladas = m && m->instala();
    });
    return instaladas;
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
    try {
        if (const ModuloTelas* m = Modulo())
            if (PortaImpressora* p = m->impressoraPdf(arquivo.c_str())) return std::shared_ptr<PortaImpressora>(p);
    } catch (...) {
    }
    return nullptr;
}

} // namespace ztolvan
