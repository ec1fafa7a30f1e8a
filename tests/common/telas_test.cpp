#include <gtest/gtest.h>

#include "common/contexto.h"
#include "common/portas.h"
#include "common/telas.h"

using namespace ztolvan;

namespace {

class Telas : public ::testing::Test {
  protected:
    void SetUp() override {
        Contexto::Renova();
        telas = std::make_shared<TelasGravadas>();
        PortasAtuais().telas = telas;
    }
    void TearDown() override { Contexto::Renova(); }
    std::shared_ptr<TelasGravadas> telas;
    int tela = 0; // stands for a screen model
};

// Without a window system, or when it refuses, nothing is kept on top.
TEST_F(Telas, NoTopoEventosEBipeVaoPelaPortaDaThread) {
    EXPECT_TRUE(MantemNoTopo(&tela, true));
    EXPECT_TRUE(MantemNoTopo(&tela, false));
    EXPECT_FALSE(MantemNoTopo(nullptr, true)) << "no screen: nothing asked";
    DoEvents();
    Beep();
    std::vector<std::string> vistas; // operation, "@" for this screen, "+" for on
    for (const auto& ch : telas->chamadas)
        vistas.push_back(ch.Operacao + (ch.Tela == &tela ? "@" : "") + (ch.Ligar ? "+" : ""));
    EXPECT_EQ(vistas, (std::vector<std::string>{"NoTopo@+", "NoTopo@", "Eventos", "Bipe"}));
    telas->aceitaNoTopo = false;
    EXPECT_FALSE(MantemNoTopo(&tela, true));
    PortasAtuais().telas = nullptr;
    EXPECT_FALSE(MantemNoTopo(&tela, true));
    EXPECT_NO_THROW(DoEvents());
}

} // namespace
