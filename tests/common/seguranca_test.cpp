#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

#include "common/contexto.h"
#include "common/portas.h"
#include "common/seguranca.h"

using namespace ztolvan;

namespace {

class ChecaSeguranca : public ::testing::Test {
  protected:
    void SetUp() override {
        Contexto::Renova();
        PortasAtuais().seguranca = [this]() -> std::shared_ptr<PortaSeguranca> {
            ++criados;
            ultimo = std::make_shared<SegurancaGravada>();
            ultimo->resultado = proximoResultado;
            ultimo->autorizador = proximoAutorizador;
            return ultimo;
        };
    }
    void TearDown() override { Contexto::Renova(); }

    // Checks as the sales generation does, with the given operator and override.
    int16_t Checa(std::string& operador, std::string& autorizador, std::optional<int16_t> empresa = 1,
                  bool libera = false, const std::string& sobrepoe = "") {
        int16_t resultado = -7;
        GLO_ChecaSeguranca(1, "PJVELPEV", "DISPON", operador, autorizador, resultado, "9999", empresa, libera,
                           sobrepoe, "ignorado");
        return resultado;
    }

    int criados = 0;
    std::shared_ptr<SegurancaGravada> ultimo;
    int16_t proximoResultado = seguranca::Autorizado;
    std::string proximoAutorizador;
};

// The company reaches the component only once given, and is kept after. One
// component serves the thread until a check releases it.
TEST_F(ChecaSeguranca, ArgumentosChegamAoComponenteNaOrdemEAEmpresaFica) {
    std::string op = "JOAO", aut;
    proximoResultado = seguranca::Recusado;
    EXPECT_EQ(Checa(op, aut, std::nullopt), seguranca::Recusado);
    ultimo->resultado = seguranca::Autorizado;
    EXPECT_EQ(Checa(op, aut, 3, false, "SUPERVISOR"), seguranca::Autorizado);
    Checa(op, aut, std::nullopt, true);
    EXPECT_EQ(criados, 1);
    ASSERT_EQ(ultimo->pedidas.size(), 3u);
    const ChecagemPedida& p = ultimo->pedidas[1];
    EXPECT_EQ(std::tie(p.Codigo, p.Programa, p.Funcao, p.Operador, p.TextoPassado, p.TextoSobrepoe),
              std::make_tuple(1, "PJVELPEV", "DISPON", "JOAO", "9999", "SUPERVISOR"));
    EXPECT_EQ((std::vector{ultimo->pedidas[0].Empresa, p.Empresa, ultimo->pedidas[2].Empresa}),
              (std::vector<int16_t>{0, 3, 3}));
    Checa(op, aut);
    EXPECT_EQ(criados, 2) << "releasing makes the next check create another";
}

// The operator stays; the authoriser is whom the component returns. A blank
// operator becomes the one returned, a blank authoriser the operator.
TEST_F(ChecaSeguranca, OperadorEAutorizadorDepoisDaChecagem) {
    const struct {
        const char *operador, *devolvido, *operadorDepois, *autorizadorDepois;
    } casos[] = {{"JOAO", "MARIA", "JOAO", "MARIA"},
                 {"  ", "MARIA", "MARIA", "MARIA"},
                 {"JOAO", "   ", "JOAO", "JOAO"}};
    for (const auto& k : casos) {
        std::string op = k.operador, aut = "ANTIGO";
        proximoAutorizador = k.devolvido;
        Checa(op, aut, 1, true); // released: the next case gets a new component
        EXPECT_EQ(op + "/" + aut, std::string(k.operadorDepois) + "/" + k.autorizadorDepois) << k.operador;
    }
}

// What is remembered, and the component, belong to the thread.
TEST_F(ChecaSeguranca, LembraOTextoDeSobreposicaoSenaoOOperadorNaPropriaThread) {
    std::string op = "JOAO", aut;
    EXPECT_EQ(OperadorLembrado(), "");
    Checa(op, aut, 1, false, "  ");
    EXPECT_EQ(OperadorLembrado(), "JOAO");
    Checa(op, aut, 1, false, "SUPERVISOR");
    EXPECT_EQ(OperadorLembrado(), "SUPERVISOR");
    std::string visto = "?";
    int16_t resultado = seguranca::Autorizado;
    std::thread([&] {
        visto = OperadorLembrado();
        std::string o = "X", a;
        // The other thread has no factory of its own: nobody can authorise there.
        GLO_ChecaSeguranca(1, "P", "F", o, a, resultado, "", std::nullopt, false, "", "");
    }).join();
    EXPECT_EQ(visto, "");
    EXPECT_EQ(resultado, seguranca::Recusado);
    EXPECT_EQ(criados, 1);
}

class SegurancaQueFalha : public PortaSeguranca {
  public:
    void ZProcessa(int16_t, const std::string&, const std::string&, std::string&, int16_t& Resultado,
                   const std::string&, const std::string&) override {
        Resultado = seguranca::Autorizado;
        throw std::runtime_error("componente quebrado");
    }
};

TEST_F(ChecaSeguranca, SemComponenteOuComFalhaRecusaSemPropagar) {
    const FabricaSeguranca fabricas[] = {
        nullptr,
        [] { return std::make_shared<SegurancaQueFalha>(); },
        []() -> std::shared_ptr<PortaSeguranca> { throw std::runtime_error("sem componente"); },
    };
    for (const auto& fabrica : fabricas) {
        PortasAtuais().seguranca = fabrica;
        for (int vez = 0; vez < 2; ++vez) {
            std::string op = "JOAO", aut;
            int16_t r = seguranca::Autorizado;
            EXPECT_NO_THROW(r = Checa(op, aut));
            EXPECT_EQ(r, seguranca::Recusado);
            EXPECT_EQ(aut, "JOAO");
        }
    }
}

} // namespace
