#include "generation/comum.h"

#include "common/contexto.h"
#include "common/conversao.h"
#include "common/mensagens.h"
#include "common/telas.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/modules/modulos.h"
#include "entry/sessao.h"
#include "precos/precos.h"
#include "screens/troca.h"

namespace ztolvan::geracao {

Estado& EstadoAtual() { return Contexto::Atual().Parte<Estado>(); }

void Avisa(const std::string& texto, int32_t tipo) { MostraMensagem(texto, tipo, Titulo); }

bool PreCondicao(const TelaGeracao& t) {
    if (t.GCon1.Rows() - 1 < 1 || Troca().QtdGera < 1) {
        Avisa("Zero Itens Gerados");
        return false;
    }
    return true;
}

std::string PrefixoAgrupamento(const TelaGeracao& t) {
    const Sessao& s = SessaoAtual();
    if (Normaliza(s.DescricaoAgrupamento) != "SIM") return {};
    // A count that is not a number reads as 0 (a lone blank); a negative one
    // is no count at all: no prefix.
    const double n = Val(s.QtdPosicoesAgrupamento);
    if (n < 0) return {};
    return Esquerda(t.NomeAgrupamento, static_cast<size_t>(CLng(n))) + " ";
}

bool Marcada(Grade& g, int linha) {
    g.DefineRow(linha);
    g.DefineCol(0);
    return g.Text() == "*";
}

double NumeroDaCelula(const Grade& g, int linha, int coluna) {
    return CDbl(Valor(g.TextMatrix(linha, coluna)));
}

LinhaGrade LeLinha(const Grade& g, int linha) {
    LinhaGrade l;
    l.descricao = g.TextMatrix(linha, 1);
    l.qtd = SemEstouro(Troca().QtdGera * NumeroDaCelula(g, linha, 4));
    l.equivalente = g.TextMatrix(linha, 8);
    l.produto = g.TextMatrix(linha, 9);
    return l;
}

bool ProdutoLido(const LinhaGrade& l) {
    const Comunica& c = ComunicaAtual();
    if (c.Status == status::Ok) return true;
    if (c.Status == status::SemLinha)
        Avisa("Produto " + l.equivalente + CR + l.descricao + CR + " NÃO CADASTRADO !");
    else
        Avisa("Erro leitura Produto. Msg => " + c.Msg);
    return false;
}

bool Disponivel(const LinhaGrade& l) {
    const std::string d = Apara(A_MTBMATEQ().Dispon.str());
    if (d.empty() || d == "5" || d == "0") return true;
    Avisa("Produto " + l.equivalente + CR + l.descricao + CR + " NÃO DISPONÍVEL!");
    return false;
}

int32_t ProximoItem(int32_t& ultimo, int32_t passo) {
    ultimo = CLng(static_cast<double>(ultimo) + passo);
    return ultimo;
}

void Desfaz() {
    A_MTBMATAG().Transacao = "ROLLBACK";
    MTBMATAG();
}

bool Inserido(const LinhaGrade& l) {
    const Comunica& c = ComunicaAtual();
    if (c.Status == status::Ok) {
        // The host reads 0 as "a line was generated": an accepted insert is one.
        SessaoAtual().StatusRet = 0;
        return true;
    }
    if (c.Status == status::ChaveExiste)
        Avisa("Produto " + l.equivalente + CR + l.descricao + CR + " JÁ EXISTE NO DOCUMENTO!");
    else
        Avisa("Erro Status Não Previsto = " + c.Msg);
    Desfaz();
    return false;
}

void MostraErroCommit() {
    const Comunica& c = ComunicaAtual();
    MostraMensagem("Erro no Commit..\\ Comunica.Transacao=" + c.Transacao + "\\ Comunica.Msg=" + c.Msg +
                       "\\ Comunica.Status" + c.Status,
                   msg::OK, Titulo);
}

bool Confirma(RegistroModulo& registro, void (*modulo)(), int32_t item) {
    registro.Transacao = "COMMIT";
    modulo();
    if (ComunicaAtual().Status != status::Ok) {
        // An item whose commit failed was not written: say so and leave
        // nothing of it pending.
        MostraErroCommit();
        Desfaz();
        return false;
    }
    EstadoAtual().itens.push_back(item);
    if (explicacao::Ligada()) EstadoAtual().explicacoes[item] = explicacao::Toma();
    return true;
}

void Conclui(TelaGeracao& t) {
    DoEvents();
    if (t.sbSair) t.sbSair();
}

void ComecaAndamento(int marcados) {
    Estado& e = EstadoAtual();
    e.feitos = 0;
    e.marcados = marcados;
    e.ultimoAndamento = std::chrono::steady_clock::now();
}

void Avanca(TelaGeracao& t) {
    explicacao::Comeca();
    Estado& e = EstadoAtual();
    ++e.feitos;
    if (!t.andamento) return;
    // A repaint per item would cost more than the item on a fast database.
    const auto agora = std::chrono::steady_clock::now();
    if (agora - e.ultimoAndamento < std::chrono::milliseconds(100)) return;
    e.ultimoAndamento = agora;
    t.andamento(e.feitos, e.marcados);
}

} // namespace ztolvan::geracao
