#pragma once
#include <cstdlib>
#include <memory>
#include <optional>

#include "data/comunica.h"
#include "data/config_banco.h"
#include "data/despachante.h"
#include "data/modules/modulos_teste.h"
#include "entry/telas_componente.h"
#include "ztolvan/consultalista.h"

namespace ztolvan::teste {

// The demo database behind a real consultalista, created as a host creates
// it: its own connection through the settings, its log in the test's folder.
class ComComponente : public ComDemo {
  protected:
    void SetUp() override {
        ComDemo::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        FechaConexao();
        ConfigBanco::DefineFixa(ConfigBanco{db->Servidor(), db->Banco(), db->Usuario(), db->Senha()});
        setenv("ZTOLVAN_LOG_DIR", db->Pasta().c_str(), 1);
        Instala();
        componente = std::make_unique<consultalista>();
        ASSERT_EQ(ComunicaAtual().Status, "00") << ComunicaAtual().Msg;
    }
    void TearDown() override {
        componente.reset();
        ConfigBanco::DefineFixa(std::nullopt);
        DefineFabricaTelas(nullptr);
        ComDemo::TearDown();
    }
    // What the host installs before it creates the component.
    virtual void Instala() {}

    std::unique_ptr<consultalista> componente;
};

} // namespace ztolvan::teste
