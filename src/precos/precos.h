#pragma once
// Item prices and taxes: the arithmetic the generators apply to each item and
// the point-of-sale price lookup shares. It reads the module records the
// caller has just filled (equivalence, stock, cost, supplier) and Sessao; it
// knows nothing of screens.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "data/modules/registros.h"

namespace ztolvan {

// --- Rounding where the system rounds, and nowhere else ---------------------

// Through the format "########0.00" and back: two decimals, halves away from zero.
double ArredondaValor(double v);
// Through "##0.0000" and back: four decimals.
double ArredondaQuatro(double v);
// Through "######0.00" and back.
double ArredondaValorCurto(double v);
// A double that overflowed (infinite or not a number) is the old run-time's
// overflow: ErroExecucao 6. Returns v when it is finite.
double SemEstouro(double v);

// --- Sale price --------------------------------------------------------------

// The unit sale price on day 'hoje' ("YYYYMMDD"): the promotion price inside
// its period (no end date means open-ended), else the normal price.
double PrecoDoDia(double Valor, double PrcProm, std::string_view DtIProm, std::string_view DtFProm,
                  std::string_view hoje);
// The sale price of the equivalence record just read (A_MTBMATEQ), today by
// the thread's clock. A run-time error is reported under the procedure's
// name, as screen 'formulario' reports it, and gives 0 (and *falhou true).
double PrecoPromocional(const std::string& formulario = "TolvanF01", bool* falhou = nullptr);

// --- ICMS classification of a sales item -------------------------------------

// Operation codes that take no ICMS at all, and those that take none on the
// special route (same state, not "PB").
bool OperacaoSemICMS(int16_t NatOper);
bool OperacaoDeRotaEspecial(int16_t NatOper);

struct DadosTributos {
    std::string SitTrib; // the product's SITTRIB
    bool CobraSubstituicao = false;
    std::string Dado1, Dado3, Dado4, Dado5, Dado6;
    double PercIsen = 0;  // the ICMS tax code, as stored
    int16_t CodICMSS = 0; // the substitution tax code
    int16_t NatOper = 0;  // datum 0
};

struct Tributos {
    std::string SitTrib;
    double PercICMS = 0;
    double PercICMSS = 0;
};

// The item's SitTrib and rates for Sessao.Empresa, looking the rates up with
// LerAliquotaICMS (which leaves them in Sessao.PercICMS/PercICMSF). A SITTRIB
// that is not a number is a type mismatch (ErroExecucao 13).
Tributos ClassificaICMS(const DadosTributos& d);

// Sales-order item (A_MTBPEVIT) from the equivalence record and the session:
// substitution is charged when datum 2 is -1. Errors go to the caller.
void SetaCamposVenda();
// Store-document item (A_MTBDOCIT): substitution is charged when the flag
// is set (datum 2 not 0). Data 5 and 6 come from the session, as they always
// did; the arguments are kept for the callers. False when a run-time error
// was reported (the item's taxes are then unknown).
bool Calcula_Tributos(const std::string& SitTrib, bool CobraSubstituicao, const std::string& Dado3,
                      const std::string& Dado4, const std::string& Dado5, const std::string& Dado6,
                      const std::string& Dado1, double PercIsen, int16_t CodICMSS, int16_t NatOper);

// --- Net margin of a store-document item -------------------------------------

// The charges on one unit: u × p / 100 for each positive percentage, u the
// price over the unit quantity.
double SomaEncargos(double preco, double qtdUnd, double p1, double p2, double p3, double p4, double p5,
                    double p6, double p7);
// Unit price less cost less charges; never below 0.
double CalculaMargemLiquida(double preco, double qtdUnd, double percICMS, double custo, double perCofins,
                            double perPis, double perCusFixo, double perCPMF, double perIRPJ, double perCSSL);

// --- Purchase items ------------------------------------------------------------

// PrecoTab less the cascade of Desc1 .. Desc8 (doubles, no rounding).
double CustoLiquido(const A_MTBCUS_t& custo);
// The substitution rate from the ordinary rates of the two tax codes (a of
// the product's, b of its substitution code), in fixed point; a = 0 counts as 1.
double AliquotaSubstituicao(double a, double b);
// The same, the two rates looked up for Sessao.Empresa with a blank state.
double PercSubstituicaoCompra(double PercIsen, int16_t CodICMSS);
// The ICMS substitution base of the purchase item, in fixed point. PercIPI
// takes the cost record's IPI when one was read for the item (ipiCusto).
double BaseIcmsSub(A_MTBPECIT_t& item, std::optional<double> ipiCusto, int16_t flagIpi);
// On the module records: A_MTBPECIT from A_MTBCUS and A_MTBFOR's FLAGIPI.
void CalculaBaseIcmsSub(bool custoLido = true);

} // namespace ztolvan
