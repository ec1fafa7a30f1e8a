// The C library's locale belongs to the host: a desktop program (and Qt)
// sets it from the environment, and a Brazilian desktop reads "24.90" only
// up to the point. Whatever it is, the component writes the same figures.
#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <string>
#include <vector>

#include "apoio/linha_de_comando.h"
#include "apoio/pdf.h"
#include "common/conversao.h"
#include "common/formato.h"
#include "common/regiao.h"
#include "generation/geracao_teste.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

const char* const Locales[] = {"pt_BR.UTF-8", "C.UTF-8", "en_US.UTF-8", "de_DE.UTF-8"};

// Puts the process in a locale for one scope, as a host would, and back.
class LocaleDoProcesso {
  public:
    explicit LocaleDoProcesso(const char* nome) : antes_(std::setlocale(LC_ALL, nullptr)) {
        ok_ = std::setlocale(LC_ALL, nome) != nullptr;
    }
    ~LocaleDoProcesso() { std::setlocale(LC_ALL, antes_.c_str()); }
    bool ok() const { return ok_; }

  private:
    std::string antes_;
    bool ok_ = false;
};

TEST(LocaleDoHost, ConversoesDeBancoEDeTelaNaoDependemDele) {
    DefineRegiao(Regiao::PtBr());
    for (const char* nome : Locales) {
        LocaleDoProcesso l(nome);
        ASSERT_TRUE(l.ok()) << nome << " is not installed (scripts/bootstrap generates it)";
        SCOPED_TRACE(nome);
        // What a database or a statement holds.
        EXPECT_DOUBLE_EQ(Val("24.90"), 24.9);
        EXPECT_DOUBLE_EQ(Val(" 8.49abc"), 8.49);
        EXPECT_DOUBLE_EQ(Val("1.5e3"), 1500);
        double v = 0;
        EXPECT_TRUE(LeNumero("21.9", v));
        EXPECT_DOUBLE_EQ(v, 21.9);
        EXPECT_FALSE(LeNumero("21,9", v));
        EXPECT_EQ(EscreveNumero(2.5), "2.5");
        EXPECT_EQ(EscreveNumero(0.1 + 0.2), "0.30000000000000004");
        EXPECT_EQ(EscreveNumero(1e20, 15), "1e+20");
        // What an operator types and reads: the region's, not the C library's.
        EXPECT_DOUBLE_EQ(TextoParaNumero("1.234,56"), 1234.56);
        EXPECT_DOUBLE_EQ(ValRegional("2,5"), 2.5);
        EXPECT_EQ(Formata(180.78, "########0.00"), "180,78");
        EXPECT_EQ(Formata(2.675, "##0.0000"), "2,6750");
        EXPECT_EQ(FormataMoeda(1234.5), "R$ 1.234,50");
        EXPECT_EQ(CStr(Valor(2.5)), "2,5");
        EXPECT_EQ(CStr(Valor(1.5e20)), "1,5E+20");
    }
}

class LocaleDoHostGerando : public GeracaoDemo {};

// 000101 generated once under each locale into sales order 1: every block of
// lines carries the cents of the grid, on both databases.
TEST_P(LocaleDoHostGerando, VendaGravaOsMesmosCentavosEmQualquerLocale) {
    const Valor dados = Valor::Lista{5102, "0", 0, "SP", "SP", "SP", "SP"};
    for (const char* nome : Locales) {
        LocaleDoProcesso l(nome);
        ASSERT_TRUE(l.ok()) << nome << " is not installed (scripts/bootstrap generates it)";
        EXPECT_EQ(Gera("V", dados, "000101"), 0) << nome;
    }
    std::vector<std::string> linhas;
    for (const Valor::Lista& l : TodasAsLinhas("SELECT CodMat2, ValUnit, QtdMat, ValTotal FROM TBPEVIT WHERE "
                                               "Empresa = 1 AND NumPed = 1 ORDER BY Item"))
        linhas.push_back(Apara(CStr(l[0])) + " " + EscreveNumero(CDbl(l[1])) + " x " + EscreveNumero(CDbl(l[2])) +
                         " = " + EscreveNumero(CDbl(l[3])));
    constexpr size_t Itens = 13;
    ASSERT_EQ(linhas.size(), Itens * std::size(Locales));
    // The grid's order is the database's (the item statement has none).
    const std::vector<std::string> primeiro(linhas.begin(), linhas.begin() + Itens);
    for (const char* esperada : {"1001 24.9 x 1 = 24.9", "1002 8.49 x 2 = 16.98", "1003 21.9 x 1 = 21.9"})
        EXPECT_NE(std::find(primeiro.begin(), primeiro.end(), esperada), primeiro.end()) << esperada;
    for (size_t i = Itens; i < linhas.size(); ++i)
        EXPECT_EQ(linhas[i], linhas[i % Itens]) << Locales[i / Itens];
}

ZTOLVAN_NOS_DOIS_BANCOS(LocaleDoHostGerando);

class CotacaoNoLocaleDoHost : public ComBancoDemo {
  protected:
    void SetUp() override { Prepara("ztolvan-locale-", true); }
};

// The quotation's grand total of 000101 (13 lines): the operator reads it
// in the region's format, whatever the process locale.
TEST_F(CotacaoNoLocaleDoHost, TotalGeralComCentavos) {
    for (const char* nome : {"pt_BR.UTF-8", "C"}) {
        const std::string pdf = (pasta / (std::string(nome) + ".pdf")).string();
        Saida s = Executa("LANG=" + std::string(nome) + " LC_ALL=" + nome + " " + ZTOLVAN_CLI +
                          " cotacao --db " + banco + " --empresa 1 --operador DEMO --agrupamento 000101 --pdf " +
                          pdf + " 2>&1");
        ASSERT_EQ(s.codigo, 0) << nome << ": " << s.texto;
        const std::vector<std::string> paginas = PaginasDoPdf(pdf);
        ASSERT_EQ(paginas.size(), 1u) << nome;
        EXPECT_NE(paginas[0].find("180,78"), std::string::npos) << nome << ":\n" << paginas[0];
    }
}

} // namespace
