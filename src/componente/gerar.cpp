#include "componente/gerar.h"

#include <cstdlib>
#include <sstream>

#include "common/explicacao.h"
#include "common/portas.h"
#include "common/texto.h"
#include "componente/saida.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "entry/sessao.h"
#include "generation/geracao.h"
#include "screens/auxiliary/tolvanf03.h"
#include "screens/auxiliary/tolvanf05.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/janelas.h"

namespace ztolvan {
namespace {

// Data rows of a list "1,3,5" (1-based); false with the reason when one is
// not a row of the grid.
bool LinhasDaLista(const std::string& lista, int linhas, std::vector<int>& r, std::string& erro) {
    std::stringstream ss(lista);
    std::string item;
    while (std::getline(ss, item, ',')) {
        char* fim = nullptr;
        long n = std::strtol(item.c_str(), &fim, 10);
        if (item.empty() || *fim != '\0' || n < 1 || n > linhas) {
            erro = "linha '" + item + "' fora dos itens do agrupamento (1.." + std::to_string(linhas) + ")";
            return false;
        }
        r.push_back(static_cast<int>(n));
    }
    return true;
}

// What the operator does on the consultation screen: find, mark, change
// quantities, answer the multiplier and generate.
bool OperaConsulta(TolvanF01& f, JanelasModelo& janelas, const PedidoGeracao& p, std::string& erro) {
    const int linhas = BuscaAgrupamento(f, p.agrupamento);
    if (!AplicaMarcas(f, p.itens, erro)) return false;
    for (const std::string& q : p.quantidades) {
        const size_t igual = q.find('=');
        std::vector<int> linha;
        if (igual == std::string::npos || !LinhasDaLista(q.substr(0, igual), linhas, linha, erro) ||
            linha.size() != 1) {
            if (erro.empty()) erro = "quantidade '" + q + "' não é LINHA=QTD";
            return false;
        }
        const std::string qtd = q.substr(igual + 1);
        janelas.AoMostrar("TolvanF03", [qtd](Tela& t) {
            auto& d = static_cast<TolvanF03&>(t);
            d.TQtd.Text.clear();
            d.TQtd.Digita(qtd);
            d.BTOk_Click();
        });
        f.GCon1.Seleciona(linha[0], 1);
        f.MnuAltQtd_Click();
    }
    const std::string k = std::to_string(p.multiplicador);
    janelas.AoMostrar("TolvanF05", [k](Tela& t) {
        auto& d = static_cast<TolvanF05&>(t);
        d.TxQtdGera.Text.clear();
        d.TxQtdGera.Digita(k);
        d.bok_Click();
    });
    f.sbGerarDocumento();
    return true;
}

// The thread's ports as they were, whatever way the run ends.
struct PortasGuardadas {
    std::shared_ptr<PortaMensagens> mensagens = PortasAtuais().mensagens;
    std::shared_ptr<PortaTelas> telas = PortasAtuais().telas;
    ~PortasGuardadas() {
        PortasAtuais().mensagens = mensagens;
        PortasAtuais().telas = telas;
        DefineObservadorAndamento({});
        explicacao::Liga(false);
    }
};

Resultado ComoResultado(const RespostaGeracao& r) {
    Resultado s{r.ZCodigo, r.Zstatusret, r.zstatus, r.zstatusmens, r.ZDadosVendas, nullptr};
    s.mensagens = &r.mensagens;
    s.itens = &r.itens;
    s.linhas = &r.linhas;
    s.simulacao = r.simulacao;
    return s;
}

} // namespace

Valor MensagensRespondidas::fnMsgbox(const std::string& Texto, int32_t Tipo, const std::string& Titulo,
                                     const std::string& Texto1, const std::string&, const std::string&, int32_t,
                                     const std::string&) {
    mostradas.push_back({Texto, Tipo, Titulo, Texto1});
    if (eco_) eco_(mostradas.back());
    const int botao = PrimeiroBotao(Tipo);
    if (!sim_ && botao == msg::RespostaSim) return msg::RespostaNao;
    if (!sim_ && botao == msg::RespostaOK && (Tipo & 7) == msg::OKCancelar) return msg::RespostaCancelar;
    return botao;
}

int BuscaAgrupamento(TolvanF01& f, const std::string& codigo) {
    f.cboPesquisa.Seleciona(1); // "Código"
    f.txtPesquisa.Text.clear();
    f.txtPesquisa.Digita(codigo);
    f.bttPesquisa_Click();
    return f.GCon1.Rows() - 1;
}

bool AplicaMarcas(TolvanF01& f, const std::string& itens, std::string& erro) {
    if (Normaliza(itens) == "TODOS") {
        f.sbMarcarTodosDaTela();
    } else if (Normaliza(itens) == "NENHUM") {
        f.sbDesmarcarTodosDaTela();
    } else if (!itens.empty()) {
        std::vector<int> marcar;
        if (!LinhasDaLista(itens, f.GCon1.Rows() - 1, marcar, erro)) return false;
        f.sbDesmarcarTodosDaTela();
        for (int r : marcar) {
            f.GCon1.Seleciona(r, 0);
            f.sbMarcarSelecionado();
        }
    }
    return true;
}

RespostaGeracao GeraSemTela(consultalista& componente, const PedidoGeracao& p,
                            std::shared_ptr<MensagensRespondidas> mensagens,
                            std::function<void(int feitos, int marcados)> andamento) {
    RespostaGeracao r;
    try {
        PortasGuardadas guarda;
        auto janelas = std::make_shared<JanelasModelo>();
        PortasAtuais().mensagens = mensagens;
        PortasAtuais().telas = janelas;
        InstalaGeracao();
        int16_t empresa = p.empresa, opcao = 0, tpmov = p.tpmov, statusret = 0, zstatus = 0;
        int32_t codigo = 0, numdoc = p.numdoc;
        std::string operador = p.operador, senha, origem = p.origem, mens;
        Valor dados = p.dados;
        int16_t tipo = p.tipoPreco.value_or(0);
        bool inativos = false, captura = false;
        componente.ZProcessa(empresa, operador, senha, opcao, codigo, origem, numdoc, tpmov, statusret, zstatus,
                             mens, &dados, p.tipoPreco ? &tipo : nullptr, &inativos, &captura);
        // A call that failed (sales data missing or malformed) would open no
        // screen: nothing to generate.
        bool falhou = false;
        for (const MensagemMostrada& m : mensagens->mostradas)
            falhou = falhou || m.Tipo == msg::Critico;

        if (p.simular && !falhou && !ConectorAtual()->RetemAlteracoes(true, r.erro)) {
            r.fim = RespostaGeracao::Fim::Banco;
            return r;
        }
        DefineObservadorAndamento(std::move(andamento));
        explicacao::Liga(p.explicar);
        bool linhasValidas = true;
        std::string erro;
        janelas->AoMostrar("TolvanF01", [&](Tela& t) {
            linhasValidas = OperaConsulta(static_cast<TolvanF01&>(t), *janelas, p, erro);
        });
        if (!falhou) {
            TolvanF01 tela;
            MostraModal(tela);
        }
        r.linhas = LinhasGeradas();
        r.itens = ItensGerados();
        std::string desfeito;
        if (p.simular && !falhou && !ConectorAtual()->RetemAlteracoes(false, desfeito)) {
            r.fim = RespostaGeracao::Fim::Banco;
            r.erro = desfeito;
            return r;
        }
        r.ZCodigo = codigo;
        r.Zstatusret = static_cast<int16_t>(SessaoAtual().StatusRet);
        r.zstatus = zstatus;
        r.zstatusmens = mens;
        r.ZDadosVendas = dados;
        r.mensagens = mensagens->mostradas;
        r.simulacao = p.simular;
        if (!linhasValidas) {
            r.fim = RespostaGeracao::Fim::LinhaInvalida;
            r.erro = erro;
        } else {
            r.fim = r.itens.empty() ? RespostaGeracao::Fim::NadaGerado : RespostaGeracao::Fim::Gerado;
        }
    } catch (const std::exception& e) {
        r.fim = RespostaGeracao::Fim::Banco;
        r.erro = e.what();
    }
    return r;
}

std::string RespostaComoJson(const RespostaGeracao& r) {
    if (r.fim == RespostaGeracao::Fim::Banco || r.fim == RespostaGeracao::Fim::LinhaInvalida)
        return ErroComoJson(r.erro);
    return ComoJson(ComoResultado(r));
}
std::string RespostaComoTexto(const RespostaGeracao& r) { return ComoTexto(ComoResultado(r)); }

} // namespace ztolvan
