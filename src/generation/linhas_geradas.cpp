#include "generation/linhas_geradas.h"

#include <unordered_map>

#include "common/conversao.h"
#include "common/moeda.h"
#include "common/texto.h"
#include "data/banco_dados.h"
#include "data/comunica.h"
#include "entry/sessao.h"
#include "generation/comum.h"
#include "generation/geracao.h"

namespace ztolvan {

std::vector<LinhaGerada> LinhasGeradas() {
    const std::vector<int32_t>& itens = ItensGerados();
    if (itens.empty()) return {};
    const Sessao& s = SessaoAtual();
    const std::string empresa = TextoDecimal(s.Empresa), doc = TextoDecimal(s.NumDoc);
    std::string sql;
    if (s.OrigemTrim == "C") {
        // A purchase item keeps no line total: quantity times unit price.
        sql = "SELECT Item, CodMat2, DscMat, QtdMat, ValUnit, SitTrib, PercICMS, PercICMSS, PercIPI, "
              "QtdMat * ValUnit FROM TBPECIT WHERE Empresa = " +
              empresa + " AND NumPed = " + doc + " AND CodFor = " + TextoDecimal(s.CodFor);
    } else {
        const bool venda = s.OrigemTrim == "V";
        sql = "SELECT Item, CodMat2, DscMat, QtdMat, ValUnit, SitTrib, PercICMS, PercICMSS, PercIPI, ValTotal "
              "FROM " +
              std::string(venda ? "TBPEVIT WHERE Empresa = " : "TBDOCIT WHERE Empresa = ") + empresa +
              (venda ? " AND NumPed = " : " AND Seq = ") + doc;
    }
    clsBancoDados bd;
    bd.fcAbreBancoDadosVeltra(1);
    ResultadoComando r = bd.fcExecutaComando(1, sql, false);
    if (r.situacao != status::Ok) return {};
    std::unordered_map<int32_t, LinhaGerada> porItem;
    for (RecordSet& rs = r.rsDadosRetorno; !rs.Eof(); rs.MoveNext()) {
        LinhaGerada l;
        l.item = static_cast<int32_t>(CDbl(rs.ValorNa(0)));
        l.produto = Apara(CStr(rs.ValorNa(1)));
        l.descricao = Apara(CStr(rs.ValorNa(2)));
        l.quantidade = CDbl(rs.ValorNa(3));
        l.valorUnitario = CDbl(rs.ValorNa(4));
        l.sitTrib = Apara(CStr(rs.ValorNa(5)));
        l.percICMS = CDbl(rs.ValorNa(6));
        l.percICMSST = CDbl(rs.ValorNa(7));
        l.percIPI = CDbl(rs.ValorNa(8));
        l.total = CDbl(rs.ValorNa(9));
        porItem.emplace(l.item, std::move(l));
    }
    std::vector<LinhaGerada> linhas;
    linhas.reserve(itens.size());
    const auto& explicacoes = geracao::EstadoAtual().explicacoes;
    for (int32_t i : itens)
        if (auto it = porItem.find(i); it != porItem.end()) {
            linhas.push_back(std::move(it->second));
            if (auto e = explicacoes.find(i); e != explicacoes.end()) linhas.back().explicacao = e->second;
        }
    return linhas;
}

double TotalDasLinhas(const std::vector<LinhaGerada>& linhas) {
    // Summed in the currency's fixed point: no binary dust in a document total.
    Moeda total;
    for (const LinhaGerada& l : linhas)
        total = total + Moeda::DeDuplo(l.total);
    return total.Duplo();
}

} // namespace ztolvan
