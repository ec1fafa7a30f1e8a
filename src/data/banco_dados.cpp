#include "data/banco_dados.h"

#include "common/erro.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/despachante.h"

namespace ztolvan {

Campo RecordSet::Fields(const std::string& nome) const { return {ValorNa(Indice(nome))}; }

size_t RecordSet::Indice(const std::string& nome) const {
    for (size_t i = 0; i < tabela_.colunas.size(); ++i)
        if (IguaisSemCaixa(tabela_.colunas[i], nome)) return i;
    throw ErroExecucao(3265, "Item não encontrado nesta coleção: " + nome);
}

const Valor& RecordSet::ValorNa(size_t indice) const {
    if (Eof()) throw ErroExecucao(3021, "Não há registro atual");
    if (indice >= atual_.size()) throw ErroExecucao(3265, "Item não encontrado nesta coleção");
    return atual_[indice];
}

bool clsBancoDados::fcAbreBancoDadosVeltra(int16_t) { return ConectorAtual() != nullptr; }

void clsBancoDados::Antecipa(int16_t, const std::string& texto) {
    if (ConectorBD* k = ConectorAtual()) k->Antecipa(texto);
}

ResultadoComando clsBancoDados::fcExecutaComando(int16_t, const std::string& texto, bool) {
    ResultadoComando r;
    ConectorBD* k = ConectorAtual();
    if (!k) {
        r.situacao = status::Falha;
        r.mensagem = "Sem conexão com o banco de dados";
        return r;
    }
    if (Apara(texto).empty()) {
        r.situacao = status::Falha;
        r.mensagem = "Comando vazio";
        return r;
    }
    TabelaResultado t;
    k->Consulta(ComunicaAtual().Conexao, texto, t, r.situacao, r.mensagem);
    r.rsDadosRetorno = RecordSet(std::move(t));
    return r;
}

} // namespace ztolvan
