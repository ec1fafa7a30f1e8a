#include <gtest/gtest.h>

#include <thread>

#include "common/contexto.h"

using namespace ztolvan;

namespace {
struct Contador {
    int n = 0;
};
} // namespace

TEST(Contexto, CadaThreadTemOSeuERenovaComecaDoZero) {
    Contexto::Renova();
    Contexto::Atual().Parte<Contador>().n = 7;
    int visto = -1;
    std::thread([&] { visto = Contexto::Atual().Parte<Contador>().n; }).join();
    EXPECT_EQ(visto, 0);
    EXPECT_EQ(Contexto::Atual().Parte<Contador>().n, 7);
    Contexto::Renova();
    EXPECT_FALSE(Contexto::Atual().Tem<Contador>());
    EXPECT_EQ(Contexto::Atual().Parte<Contador>().n, 0);
}
