#pragma once
#include <functional>
#include <memory>

#include "common/armazem_maquina.h"
#include "common/mensagens.h"
#include "common/seguranca.h"
#include "common/telas.h"

namespace ztolvan {

// The thread's ways to the outside world. Hosts and tests replace them;
// whatever is unset falls back to the process-wide defaults below.
struct Portas {
    std::shared_ptr<PortaMensagens> mensagens;
    std::shared_ptr<ArmazemMaquina> armazem;
    std::shared_ptr<PortaTelas> telas;
    // A factory, not an instance: the permission check creates its component
    // on first use and may release it (GLO_ChecaSeguranca).
    FabricaSeguranca seguranca;
};

// The calling thread's ports, filled from the defaults on first use.
Portas& PortasAtuais();

// Process-wide factory of the defaults (a Qt host installs its message boxes
// here once for all threads); without one, messages go to stderr and the
// store is the INI file of ArmazemArquivoIni::ArquivoPadrao(), screens have
// no window system (TelasSemJanela) and there is no security component, so
// every permission check is refused.
void DefineFabricaPortas(std::function<Portas()> fabrica);

} // namespace ztolvan
