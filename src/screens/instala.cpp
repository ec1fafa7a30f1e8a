#include "screens/instala.h"

#include <memory>

#include "common/mensagens.h"
#include "entry/telas_componente.h"
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
        MostraMensagem("A consulta de preços (TolvanF07) ainda não está disponível.", msg::Informacao,
                       "AVISO");
    }
};

} // namespace

void InstalaTelas() {
    DefineFabricaTelas([] { return std::make_unique<TelasDoComponente>(); });
}

} // namespace ztolvan
