#include <gtest/gtest.h>

#include "data/seguranca/senha.h"

using namespace ztolvan;

namespace {

// Each hash has its own salt, so the same password never hashes the same.
TEST(HashDeSenha, TemFormaDeCryptComSalProprioEConfereSoComASenhaCerta) {
    const std::string h = GeraHashSenha("s3nha");
    ASSERT_TRUE(h.rfind("$y$", 0) == 0 || h.rfind("$6$", 0) == 0) << h;
    EXPECT_EQ(h.find("s3nha"), std::string::npos);
    EXPECT_TRUE(ConfereSenha("s3nha", h));
    EXPECT_FALSE(ConfereSenha("s3nhA", h));
    EXPECT_FALSE(ConfereSenha("s3nha ", h));
    const std::string outro = GeraHashSenha("s3nha");
    EXPECT_NE(outro, h);
    EXPECT_TRUE(ConfereSenha("s3nha", outro));
}

TEST(HashDeSenha, SenhaVaziaHashVazioOuMalFormadoNuncaConferem) {
    EXPECT_EQ(GeraHashSenha(""), "");
    EXPECT_FALSE(ConfereSenha("", GeraHashSenha("x")));
    for (const char* hash : {"", "*0", "x", "$y$quebrado"})
        EXPECT_FALSE(ConfereSenha("x", hash)) << hash;
}

TEST(HashDeSenha, Sha512CryptFeitoPorOutraFerramentaConfere) {
    // Made by `openssl passwd -6 -salt abcdefgh senha`.
    const std::string h =
        "$6$abcdefgh$EoHSae/BSqeou8BlT.4KEm7chI9y28.qpTvSWLhLAT6gsJPg/RIo8g2yAwHy21n33pbq6JMTpC4VRXraWFInF1";
    EXPECT_TRUE(ConfereSenha("senha", h));
    EXPECT_FALSE(ConfereSenha("Senha", h));
}

} // namespace
