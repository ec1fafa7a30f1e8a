#include "generation/cotacao/cotacao.h"

#include <string_view>
#include <vector>

#include "common/conversao.h"
#include "common/datas.h"
#include "common/formato.h"
#include "common/mensagens.h"
#include "common/telas.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/modules/modulos.h"
#include "entry/sessao.h"
#include "entry/settings/configuracao.h"
#include "generation/cotacao/tolvanf04.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/relato.h"

namespace ztolvan {
namespace {

using cotacao::LarguraDescricao;
using cotacao::LinhasPorPagina;

// Product and unit are cut to the room their columns leave before the next.
constexpr size_t LarguraProduto = 15;
constexpr size_t LarguraUnidade = 6;

struct FalhaImpressora {};

// A money or quantity cell as the grid shows it ("R$ 1.234,56", "2,5").
double NumeroDaCelula(const std::string& texto) {
    return Apara(texto).empty() ? 0.0 : TextoParaNumero(texto);
}

std::string Alinhado(double v, std::string_view numero, std::string_view largura) {
    return Formata(Valor(Formata(v, numero)), largura);
}

struct ItemCotado {
    std::string produto, descricao, unidade;
    double qtd = 0, preco = 0;
    // The description's further pieces that print, one a line.
    std::vector<std::string> continuacoes;
};

ItemCotado LeItem(const Grade& g, int r) {
    ItemCotado it;
    it.descricao = g.TextMatrix(r, TolvanF01::ColDescricao);
    it.qtd = NumeroDaCelula(g.TextMatrix(r, TolvanF01::ColQtd));
    it.preco = NumeroDaCelula(g.TextMatrix(r, TolvanF01::ColValUnit));
    it.unidade = Esquerda(Apara(g.TextMatrix(r, TolvanF01::ColEmbalagem)), LarguraUnidade);
    it.produto = Esquerda(Apara(g.TextMatrix(r, TolvanF01::ColProduto)), LarguraProduto);
    const size_t total = Largura(it.descricao);
    for (size_t inicio = LarguraDescricao + 1; inicio <= total; inicio += LarguraDescricao) {
        std::string pedaco = Meio(it.descricao, inicio, LarguraDescricao);
        if (!Apara(pedaco).empty()) it.continuacoes.push_back(std::move(pedaco));
    }
    return it;
}

class Relatorio {
  public:
    Relatorio(PortaImpressora& p, const Cotacao& c) : p_(p), c_(c) {}

    void Imprime(int& linha) {
        linha = 10;
        Faz(p_.Inicia("Cotação"));
        Faz(p_.DefineTamanho(12));
        LerAjuste(Ajuste::ImpressoraMatricial);
        if (Normaliza(SessaoAtual().ImpressoraMatricial) == "SIM") {
            // Without the printer's own draft face, a fixed-pitch one: the
            // columns are laid out in characters and must line up.
            if (!p_.DefineFonte("Draft 12cpi") && !p_.DefineFonte("Courier New")) p_.DefineFonte("Courier");
        } else {
            if (!p_.DefineFonte("Courier New")) p_.DefineFonte("Courier");
        }
        linha = 20;
        const Grade& g = c_.itens;
        std::vector<int> marcadas;
        for (int r = 1; r < g.Rows(); ++r)
            if (Apara(g.TextMatrix(r, TolvanF01::ColMarca)) == "*") marcadas.push_back(r);
        // The first page comes with the first data row, marked or not; later
        // pages only when an item is left for them.
        int linhas = 0;
        if (g.Rows() > 1) Cabecalho();
        int16_t numero = 0;
        for (int r : marcadas) {
            linha = 30;
            const ItemCotado it = LeItem(g, r);
            const int precisa = 1 + static_cast<int>(it.continuacoes.size());
            // An item never splits: at most 55 item lines a page, continuations included.
            if (linhas > 0 && linhas + precisa > LinhasPorPagina) {
                Faz(p_.NovaPagina());
                Cabecalho();
                linhas = 0;
            }
            ++numero;
            Item(numero, it);
            linhas += precisa;
        }
        linha = 40;
        Linha();
        Faz(p_.DefineNegrito(true));
        Escreve(68, "Total Geral");
        Escreve(81, Alinhado(total_, formatos::Valor, "@@@@@@@@@@@@"));
        Linha();
        Faz(p_.DefineNegrito(false));
        linha = 50;
        if (!Apara(c_.rodape).empty()) {
            Linha();
            Linha();
            Escreve(2, Apara(c_.rodape));
            Linha();
        }
        Faz(p_.Encerra());
    }

  private:
    static void Faz(bool ok) {
        if (!ok) throw FalhaImpressora{};
    }
    void Escreve(int coluna, std::string_view texto) { Faz(p_.Escreve(coluna, texto)); }
    void Linha() { Faz(p_.NovaLinha()); }
    void Rotulo(const std::string& rotulo, const std::string& valor) {
        Faz(p_.DefineNegrito(true));
        Escreve(0, rotulo);
        Faz(p_.DefineNegrito(false));
        Escreve(0, valor);
        Linha();
    }

    void Cabecalho() {
        const Sessao& s = SessaoAtual();
        ChaveMTBPAR().Empresa = s.Empresa;
        A_MTBPAR().Funcao = "FSEL001";
        A_MTBPAR().Transacao = "REQUERY";
        MTBPAR();
        const Comunica& k = ComunicaAtual();
        if (k.Status != status::Ok) {
            MostraMensagem("Erro status = " + k.Msg, msg::OK, "Agrupamento");
            Beep();
            // Without the header the lines still print in their own size,
            // or prices and totals would run off the page.
            Faz(p_.DefineTamanho(9));
            return;
        }
        const A_MTBPAR_t& par = A_MTBPAR();
        const std::string hora = AgoraHHMMSS();
        const std::string brancos(60, ' ');
        Linha();
        Faz(p_.DefineTamanho(9));
        Rotulo(" Empresa: ",
               TextoDecimal(par.Empresa) + "-" + AparaDireita(Esquerda(par.NomeFant.str(), 40)));
        Rotulo(" Sistema: ", "VELTRA" + brancos + "Data: " +
                                 fcRetornaDataNoFormatoDesejado(HojeAAAAMMDD(), "YYYYMMDD", "DD/MM/YYYY"));
        Rotulo(" Módulo : ", "VENDAS" + brancos + "Hora: " + "  " + hora.substr(0, 2) + ":" +
                                 hora.substr(2, 2) + ":" + hora.substr(4, 2));
        Linha();
        Escreve(0, std::string(92, '-'));
        Linha();
        Linha();
        Faz(p_.DefineTamanho(12));
        Faz(p_.DefineNegrito(true));
        std::string titulo = "Cotação - " + Apara(c_.agrupamento);
        if (!Apara(c_.titulo).empty()) titulo += "(" + Apara(c_.titulo) + ")";
        Escreve(0, titulo);
        Linha();
        Faz(p_.DefineNegrito(false));
        Faz(p_.DefineTamanho(9));
        Linha();
        Linha();
        Faz(p_.DefineSublinhado(true));
        Escreve(1, "Item");
        Escreve(6, "Produto");
        Escreve(22, "Descrição");
        Escreve(64, "Qtd");
        Escreve(68, "UN");
        Escreve(78, "Preço");
        Escreve(88, "Total");
        Linha();
        Faz(p_.DefineSublinhado(false));
        Linha();
    }

    void Item(int16_t numero, const ItemCotado& it) {
        const double valor = it.qtd * it.preco;
        total_ += valor;
        Escreve(1, TextoDecimal(numero));
        Escreve(6, it.produto);
        Escreve(22, Esquerda(it.descricao, LarguraDescricao));
        Escreve(58, Alinhado(it.qtd, "####0.000", "@@@@@@@@@"));
        Escreve(68, it.unidade);
        Escreve(75, Alinhado(it.preco, "####0.00", "@@@@@@@@"));
        Escreve(83, Alinhado(valor, formatos::ValorCurto, "@@@@@@@@@@"));
        Linha();
        for (const std::string& pedaco : it.continuacoes) {
            Escreve(22, pedaco);
            Linha();
        }
    }

    PortaImpressora& p_;
    const Cotacao& c_;
    double total_ = 0;
};

} // namespace

bool ImprimeCotacao(PortaImpressora& p, const Cotacao& c) {
    bool impresso = false;
    const bool semErro = Protegido(EstiloErro::Previsto, "ImprimeCotacao", "TolvanF04", [&](int& linha) {
        try {
            Relatorio(p, c).Imprime(linha);
            impresso = true;
        } catch (const FalhaImpressora&) {
            MostraMensagem("Verifique a Impressora !!! ", msg::Exclamacao, "Impressão");
        }
    });
    // Half a quotation never reaches the printer.
    if (!impresso || !semErro) p.Cancela();
    return impresso && semErro;
}

bool ImprimeCotacao(PortaImpressora& p, const TolvanF01& f, const std::string& titulo,
                    const std::string& rodape) {
    return ImprimeCotacao(p, Cotacao{f.GCon1, f.LNome.Caption, titulo, rodape});
}

void sbImprimir(TolvanF01& f) {
    Protegido(EstiloErro::Log, "sbImprimir", f.Name, [&](int& linha) {
        linha = 10;
        if (Apara(f.txtPesquisa.Text).empty()) {
            f.DefineMensagem("Código não informado");
            return;
        }
        linha = 20;
        const Valor r =
            MostraMensagem("Deseja imprimir a Cotação?", msg::SimNao | msg::Pergunta, "Impressão");
        if (CDbl(r) != msg::RespostaSim) return;
        linha = 30;
        TolvanF04 tela(f);
        MostraModal(tela);
    });
}

void InstalaCotacao() {
    AcoesConsulta acoes = AcoesConsultaAtuais();
    acoes.Imprimir = sbImprimir;
    DefineAcoesConsulta(std::move(acoes));
}

} // namespace ztolvan
