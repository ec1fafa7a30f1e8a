#include "estoque/disponibilidade.h"

#include <algorithm>
#include <cmath>

#include "common/conversao.h"
#include "common/formato.h"
#include "common/texto.h"
#include "data/banco_dados.h"

namespace ztolvan::estoque {
namespace {

// A quotient such as 2.9999999 from 0.3 / 0.1 is 3 whole groupings.
constexpr double Folga = 1e-9;

std::string Nomes(const std::vector<const ItemDisponivel*>& itens) {
    std::string r;
    const size_t mostrados = std::min<size_t>(itens.size(), 2);
    for (size_t i = 0; i < mostrados; ++i)
        r += (i ? (i + 1 == itens.size() ? " e " : ", ") : "") + itens[i]->descricao;
    if (itens.size() > mostrados) r += " e mais " + TextoDecimal(static_cast<int64_t>(itens.size() - mostrados));
    return r;
}

std::string SqlSaldos(int16_t empresa, const std::string& agrupamento) {
    const std::string e = TextoDecimal(empresa);
    return "SELECT T2.CODITEM, T2.QTDITATU, T2.QTDITBLOQ FROM TBMAT T2 WHERE T2.EMPRESA = " + e +
           " AND T2.CODITEM IN (SELECT T1.CODITEM FROM TBMATAG T1 WHERE T1.EMPRESA = " + e + " AND T1.CODIGO = '" +
           DobraAspas(Apara(agrupamento)) + "')";
}

} // namespace

void AntecipaSaldos(int16_t empresa, const std::string& agrupamento) {
    clsBancoDados().Antecipa(1, SqlSaldos(empresa, agrupamento));
}

std::optional<SaldoDosProdutos> LeSaldos(int16_t empresa, const std::string& agrupamento, std::string& erro) {
    clsBancoDados bd;
    bd.fcAbreBancoDadosVeltra(1);
    ResultadoComando r = bd.fcExecutaComando(1, SqlSaldos(empresa, agrupamento), false);
    if (Formata(Valor(r.situacao), "00") != "00") {
        erro = r.mensagem;
        return std::nullopt;
    }
    RecordSet& rs = r.rsDadosRetorno;
    const size_t cItem = rs.Indice("CODITEM"), cAtu = rs.Indice("QTDITATU"), cBloq = rs.Indice("QTDITBLOQ");
    SaldoDosProdutos saldos;
    saldos.reserve(rs.RecordCount());
    std::string apoio;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext())
        saldos.emplace(Apara(TextoDe(rs.ValorNa(cItem), apoio)), Saldo{CDbl(rs.ValorNa(cAtu)), CDbl(rs.ValorNa(cBloq))});
    return saldos;
}

Disponibilidade Calcula(const std::vector<Necessidade>& itens, const SaldoDosProdutos& saldos) {
    Disponibilidade d;
    d.itens.reserve(itens.size());
    for (const Necessidade& n : itens) {
        ItemDisponivel i{Apara(n.produto), Apara(n.descricao), n.quantidade, std::nullopt, std::nullopt, false};
        const auto s = i.produto.empty() ? saldos.end() : saldos.find(i.produto);
        if (s == saldos.end()) {
            i.permite = 0;
        } else {
            i.livre = s->second.Livre();
            if (n.quantidade > 0) {
                const double q = std::max(0.0, *i.livre) / n.quantidade;
                i.permite = static_cast<int64_t>(std::floor(q + Folga));
                if (!d.agrupamentos || *i.permite < *d.agrupamentos) d.agrupamentos = i.permite;
            }
        }
        d.itens.push_back(std::move(i));
    }
    if (d.agrupamentos)
        for (ItemDisponivel& i : d.itens)
            i.limitante = i.Cadastrado() && i.permite == d.agrupamentos;
    return d;
}

std::string TextoDisponibilidade(const Disponibilidade& d) {
    if (d.itens.empty()) return {};
    std::vector<const ItemDisponivel*> limitantes, semCadastro;
    for (const ItemDisponivel& i : d.itens) {
        if (i.limitante) limitantes.push_back(&i);
        if (!i.Cadastrado()) semCadastro.push_back(&i);
    }
    std::string t;
    if (!d.agrupamentos) {
        t = "Estoque: nenhum item consome estoque";
    } else if (*d.agrupamentos == 0) {
        t = "Estoque não atende nenhum agrupamento completo; limitado por " + Nomes(limitantes);
    } else {
        t = "Estoque atende " + Formata(static_cast<double>(*d.agrupamentos), "#,##0") +
            (*d.agrupamentos == 1 ? " agrupamento completo" : " agrupamentos completos") + "; limitado por " +
            Nomes(limitantes);
    }
    if (!semCadastro.empty()) t += "; sem cadastro: " + Nomes(semCadastro);
    return t;
}

} // namespace ztolvan::estoque
