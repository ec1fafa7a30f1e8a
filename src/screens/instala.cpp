#include "screens/instala.h"

#include "screens/auxiliary/tolvanf07.h"
#include "screens/consultation/tolvanf01.h"

namespace ztolvan {
namespace {

class TelasDoComponente : public TelasComponente {
  public:
    void MostraConsulta() override {
        TolvanF01 tela;
        MostraModal(tela);
    }
    void MostraPrecos() override {
        TolvanF07 tela;
        MostraModal(tela);
    }
};

} // namespace

std::unique_ptr<TelasComponente> CriaTelasDoComponente() { return std::make_unique<TelasDoComponente>(); }

void InstalaTelas() { DefineFabricaTelas(CriaTelasDoComponente); }

} // namespace ztolvan
