#include "precos/precos.h"

#include <array>
#include <cmath>

#include "common/conversao.h"
#include "common/datas.h"
#include "common/erro.h"
#include "common/explicacao.h"
#include "common/formato.h"
#include "common/moeda.h"
#include "common/texto.h"
#include "data/modules/modulos.h"
#include "entry/sessao.h"
#include "precos/trapa.h"

namespace ztolvan {

double ArredondaValor(double v) { return TextoParaNumero(Formata(v, formatos::Valor)); }
double ArredondaQuatro(double v) { return TextoParaNumero(Formata(v, formatos::Quatro)); }
double ArredondaValorCurto(double v) { return TextoParaNumero(Formata(v, formatos::ValorCurto)); }

double SemEstouro(double v) {
    if (!std::isfinite(v)) throw ErroExecucao::Estouro();
    return v;
}

double PrecoDoDia(double Valor, double PrcProm, std::string_view DtIProm, std::string_view DtFProm,
                  std::string_view hoje) {
    // Dates are "YYYYMMDD" texts and compare as texts.
    double preco = Valor;
    const bool promocao = PrcProm != 0 && !(hoje < DtIProm) && (Apara(DtFProm).empty() || !(hoje > DtFProm));
    if (promocao) preco = PrcProm;
    if (explicacao::Ligada()) {
        explicacao::Anota("preco", promocao ? "promoção" : "valor da equivalência");
        if (PrcProm != 0) {
            explicacao::Anota("PrcProm", PrcProm);
            explicacao::Anota("DtIProm", Apara(DtIProm));
            explicacao::Anota("DtFProm", Apara(DtFProm));
        }
        explicacao::Anota("Valor", Valor);
    }
    return ArredondaValor(preco);
}

double PrecoPromocional(const std::string& formulario, bool* falhou) {
    double preco = 0;
    const bool ok = Trapa("PrecoPromocional", formulario, [&](int& linha) {
        linha = 10;
        const A_MTBMATEQ_t& e = A_MTBMATEQ();
        const std::string hoje = HojeAAAAMMDD();
        linha = 20;
        preco = PrecoDoDia(e.Valor, e.PrcProm, e.DtIProm.str(), e.DtFProm.str(), hoje);
    });
    if (falhou) *falhou = !ok;
    return preco;
}

bool OperacaoSemICMS(int16_t op) { return op == 592 || op == 593 || op == 5552 || op == 5901; }
bool OperacaoDeRotaEspecial(int16_t op) { return op == 521 || op == 522 || op == 5151 || op == 5152; }

namespace {

// Same state on both ends and not "PB": the operations of the special
// route then carry no ICMS.
bool RotaEspecial(const DadosTributos& d) {
    const std::string d3 = Normaliza(d.Dado3);
    return d3 != "PB" && Normaliza(d.Dado4) == d3 && Normaliza(d.Dado6) == Normaliza(d.Dado5);
}

// The rate of a tax code for the item's state: the ordinary one (kind "D")
// or the final consumer's ("F"). The lookup leaves both in Sessao.
double Aliquota(double codigo, const std::string& uf, const char* tipo) {
    Sessao& s = SessaoAtual();
    int16_t empresa = s.Empresa;
    int16_t cod = CInt(codigo);
    std::string estado = uf, t = tipo;
    LerAliquotaICMS(empresa, cod, estado, t, s.PercICMS, s.PercICMSF);
    return t == "F" ? s.PercICMSF : s.PercICMS;
}

// Which row gave the rate just looked up, under 'chave'.
void AnotaAliquota(const char* chave, const char* tipo) {
    if (!explicacao::Ligada()) return;
    const OrigemAliquotaICMS& o = UltimaAliquotaICMS();
    const std::string codigo = TextoDecimal(o.empresa) + "/" + TextoDecimal(o.codigo);
    if (!o.achou)
        explicacao::Anota(chave, "código " + codigo + " não encontrado: 0");
    else if (std::string_view(tipo) != "F")
        explicacao::Anota(chave, "TBICM " + codigo + " PERCICMS");
    else if (o.doEstado)
        explicacao::Anota(chave, "TBICMUF " + codigo + "/" + Apara(o.uf) + " PERCICMSF");
    else
        explicacao::Anota(chave, "TBICM " + codigo + " PERCICMSF");
}

} // namespace

Tributos ClassificaICMS(const DadosTributos& d) {
    const std::string& s = d.SitTrib;
    // Notes cost nothing when no one asked for them.
    const bool explica = explicacao::Ligada();
    if (explica) explicacao::Anota("sitTribBase", s);
    int c = 0;
    const char* rota = "situação do produto";
    if (s == "4") {
        c = 4;
        rota = "produto 4";
    } else if (OperacaoSemICMS(d.NatOper)) {
        c = 0;
        rota = "operação sem ICMS";
    } else if (OperacaoDeRotaEspecial(d.NatOper) && RotaEspecial(d)) {
        c = 0;
        rota = "rota especial";
    } else {
        c = CInt(Valor(s));
    }
    if (explica) explicacao::Anota("rota", rota);

    Tributos t;
    if (s == "4")
        t.SitTrib = "4";
    else if (Normaliza(SessaoAtual().CobraICMSSubstituto) == "SIM" && d.CobraSubstituicao && c == 1)
        t.SitTrib = "3";
    else
        t.SitTrib = TextoDecimal(c);
    if (explica) explicacao::Anota("substituicaoCobrada", s != "3" && t.SitTrib == "3");

    if (s != "1" && s != "3") {
        if (t.SitTrib == "4") {
            t.PercICMS = Aliquota(d.PercIsen, d.Dado4, "D");
            if (explica) explicacao::Anota("tipoAliquota", "D");
            AnotaAliquota("aliquotaICMS", "D");
        }
        return t;
    }
    if (OperacaoSemICMS(d.NatOper)) return t;
    const char* tipo = Apara(d.Dado1) == "1" ? "F" : "D";
    if (explica) explicacao::Anota("tipoAliquota", tipo);
    if (t.SitTrib == "1" || t.SitTrib == "3") {
        t.PercICMS = ArredondaQuatro(Aliquota(d.PercIsen, d.Dado4, tipo));
        AnotaAliquota("aliquotaICMS", tipo);
    }
    t.PercICMSS = 0;
    if (t.SitTrib != "3") return t;
    if (Apara(d.Dado1) == "0") {
        t.PercICMS = 0;
        if (explica) explicacao::Anota("aliquotaICMS", "zerada: dado 1 é 0");
        return t;
    }
    t.PercICMSS = Aliquota(d.CodICMSS, d.Dado4, tipo);
    AnotaAliquota("aliquotaST", tipo);
    return t;
}

void SetaCamposVenda() {
    const Sessao& s = SessaoAtual();
    const A_MTBMATEQ_t& e = A_MTBMATEQ();
    DadosTributos d;
    d.SitTrib = e.SitTrib.str();
    d.CobraSubstituicao = s.DadosVenda2 == -1;
    d.Dado1 = s.DadosVenda1;
    d.Dado3 = s.DadosVenda3;
    d.Dado4 = s.DadosVenda4;
    d.Dado5 = s.DadosVenda5;
    d.Dado6 = s.DadosVenda6;
    d.PercIsen = e.PercIsen;
    d.CodICMSS = e.CodICMSS;
    d.NatOper = s.NatOper;
    Tributos t = ClassificaICMS(d);
    A_MTBPEVIT_t& it = A_MTBPEVIT();
    it.SitTrib = t.SitTrib;
    it.PercICMS = t.PercICMS;
    it.PercICMSS = t.PercICMSS;
}

bool Calcula_Tributos(const std::string& SitTrib, bool CobraSubstituicao, const std::string& Dado3,
                      const std::string& Dado4, const std::string& /*Dado5*/, const std::string& /*Dado6*/,
                      const std::string& Dado1, double PercIsen, int16_t CodICMSS, int16_t NatOper) {
    return Trapa("Calcula_Tributos", "TolvanF01", [&](int& linha) {
        linha = 10;
        const Sessao& s = SessaoAtual();
        DadosTributos d{SitTrib,       CobraSubstituicao, Dado1,    Dado3,    Dado4,
                        s.DadosVenda5, s.DadosVenda6,     PercIsen, CodICMSS, NatOper};
        linha = 20;
        Tributos t = ClassificaICMS(d);
        linha = 30;
        A_MTBDOCIT_t& it = A_MTBDOCIT();
        it.SitTrib = t.SitTrib;
        it.PercICMS = t.PercICMS;
        it.PercICMSS = t.PercICMSS;
    });
}

double SomaEncargos(double preco, double qtdUnd, double p1, double p2, double p3, double p4, double p5,
                    double p6, double p7) {
    if (qtdUnd == 0) throw ErroExecucao(11, "Divisão por zero");
    const double u = SemEstouro(preco / qtdUnd);
    double encargos = 0;
    for (double p : {p1, p2, p3, p4, p5, p6, p7})
        if (p > 0) encargos = SemEstouro(encargos + u * p / 100);
    return encargos;
}

double CalculaMargemLiquida(double preco, double qtdUnd, double percICMS, double custo, double perCofins,
                            double perPis, double perCusFixo, double perCPMF, double perIRPJ,
                            double perCSSL) {
    const double encargos =
        SomaEncargos(preco, qtdUnd, percICMS, perCofins, perPis, perCusFixo, perCPMF, perIRPJ, perCSSL);
    const double margem = SemEstouro(preco / qtdUnd - custo - encargos);
    return margem < 0 ? 0 : margem;
}

namespace {

std::array<double, 8> Descontos(double d1, double d2, double d3, double d4, double d5, double d6, double d7,
                                double d8) {
    return {d1, d2, d3, d4, d5, d6, d7, d8};
}

} // namespace

double CustoLiquido(const A_MTBCUS_t& c) {
    double custo = c.PrecoTab;
    Valor::Lista aplicados;
    for (double d : Descontos(c.Desc1, c.Desc2, c.Desc3, c.Desc4, c.Desc5, c.Desc6, c.Desc7, c.Desc8))
        if (d != 0) {
            custo = SemEstouro(custo * (100 - d) / 100);
            if (explicacao::Ligada()) aplicados.push_back(d);
        }
    if (explicacao::Ligada()) {
        explicacao::Anota("PrecoTab", c.PrecoTab);
        explicacao::Anota("descontos", std::move(aplicados));
    }
    return custo;
}

namespace {

// A fixed-point value times a rate: the product is made from the exact
// operands and becomes a Moeda once (ties to even); the rate itself is never
// cut to four decimals first.
Moeda Vezes(Moeda m, double fator) { return Moeda::DeDuplo(SemEstouro(m.Duplo() * fator)); }

} // namespace

// Fixed point throughout: every product and quotient is a Moeda when made
// (ties to even); where the system rounds, the quotient goes through the
// four-decimal format instead (halves away from zero).
double AliquotaSubstituicao(double a, double b) {
    const Moeda cem = Moeda::DeDezMilesimos(1000000);
    const Moeda x = Moeda::DeDuplo(SemEstouro((a + b) * 100));
    if (a == 0) a = 1;
    // x / a / 100 is one value, converted once.
    const Moeda y = Moeda::DeDuplo(SemEstouro(x.Duplo() / a / 100));
    return ArredondaValorCurto((cem * y - cem).Duplo());
}

double PercSubstituicaoCompra(double PercIsen, int16_t CodICMSS) {
    const double a = Aliquota(PercIsen, " ", "D");
    AnotaAliquota("aliquotaICMS", "D");
    const double b = Aliquota(CodICMSS, " ", "D");
    AnotaAliquota("aliquotaST", "D");
    return AliquotaSubstituicao(a, b);
}

namespace {

// p × percentage / 100, rounded to four decimals as the system does.
Moeda PercentualArredondado(Moeda base, double percentual) {
    return Moeda::DeDuplo(ArredondaQuatro(Vezes(base, percentual).Duplo() / 100));
}

} // namespace

double BaseIcmsSub(A_MTBPECIT_t& it, std::optional<double> ipiCusto, int16_t flagIpi) {
    const Moeda zero, um = Moeda::DeDezMilesimos(10000), cem = Moeda::DeDezMilesimos(1000000);
    Moeda custo = Moeda::DeDuplo(it.PrecoTab != 0 ? it.PrecoTab : it.ValUnit);
    for (double d : Descontos(it.Desc1, it.Desc2, it.Desc3, it.Desc4, it.Desc5, it.Desc6, it.Desc7, it.Desc8))
        if (d != 0) custo = Vezes(custo, 100 - d) / cem;
    if (it.FreteEmbut != 0) custo = custo + PercentualArredondado(custo, it.FreteEmbut);
    const Moeda frete = it.Frete != 0 ? PercentualArredondado(custo, it.Frete) : zero;
    const Moeda embalagem = it.Emb != 0 ? PercentualArredondado(custo, it.Emb) : zero;
    if (ipiCusto && it.PercIPI != *ipiCusto) it.PercIPI = *ipiCusto;
    Moeda ipi;
    if (it.PercIPI != 0)
        ipi = PercentualArredondado(flagIpi == 2 ? custo + frete + embalagem : custo + embalagem, it.PercIPI);

    Moeda base;
    if (Apara(it.SitTrib.str()) == "3") {
        const Moeda m = um + Moeda::DeDuplo(it.PercICMSS) / cem;
        const Moeda valor = Moeda::DeDuplo(it.ValRec), qtd = Moeda::DeDuplo(it.QtdRec);
        Moeda parcela = valor;
        if (flagIpi == 2)
            parcela = it.PercIPI != 0 ? valor + frete + ipi : valor + frete;
        else if (it.Frete != 0 && it.PercIPI != 0)
            parcela = valor + frete + ipi;
        else if (it.PercIPI != 0)
            parcela = valor + ipi;
        else if (it.Frete != 0)
            parcela = valor + frete;
        base = m * parcela * qtd;
    }
    return base.Duplo();
}

void CalculaBaseIcmsSub(bool custoLido) {
    A_MTBPECIT_t& it = A_MTBPECIT();
    it.BaseIcmsSub =
        BaseIcmsSub(it, custoLido ? std::optional<double>(A_MTBCUS().IPI) : std::nullopt, A_MTBFOR().FLAGIPI);
}

} // namespace ztolvan
