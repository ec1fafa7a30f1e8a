#pragma once
#include <functional>
#include <memory>

namespace ztolvan {

// What shows the component's screens modally: the grouping consultation
// (TolvanF01) and the price consultation (TolvanF07). The screens layer
// installs its factory once per process; each thread gets its own instance,
// made on first use and kept, so later calls show the same screens again.
class TelasComponente {
  public:
    virtual ~TelasComponente() = default;
    virtual void MostraConsulta() = 0;
    virtual void MostraPrecos() = 0;
};

void DefineFabricaTelas(std::function<std::unique_ptr<TelasComponente>()> fabrica);
// The thread's screens; without a factory, a stand-in that tells the
// operator the screen is not available in this program.
TelasComponente& TelasAtuais();

} // namespace ztolvan
