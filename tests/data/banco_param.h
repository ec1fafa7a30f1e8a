#pragma once
#include <gtest/gtest.h>

#include "apoio/banco_teste.h"

namespace ztolvan::teste {

// Fixture for suites that run the same behaviours on both database kinds.
class SobreOsDoisBancos : public ::testing::TestWithParam<Kind> {
  protected:
    void SetUp() override {
        db = std::make_unique<BancoTeste>(GetParam());
        if (!db->Pronto()) {
            if (GetParam() == Kind::Sqlite || db->Obrigatorio()) FAIL() << db->Motivo();
            GTEST_SKIP() << db->Motivo();
        }
    }
    void TearDown() override { db.reset(); }
    std::unique_ptr<BancoTeste> db;
};

inline std::string NomeDoParametro(const ::testing::TestParamInfo<Kind>& i) { return Nome(i.param); }

#define ZTOLVAN_NOS_DOIS_BANCOS(Suite)                                                                       \
    INSTANTIATE_TEST_SUITE_P(                                                                                \
        , Suite, ::testing::Values(::ztolvan::teste::Kind::Sqlite, ::ztolvan::teste::Kind::Postgres),        \
        ::ztolvan::teste::NomeDoParametro)

} // namespace ztolvan::teste
