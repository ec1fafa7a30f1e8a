#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "data/banco_dados.h"
#include "estoque/disponibilidade.h"
#include "screens/controles.h"
#include "screens/grade.h"
#include "screens/tela.h"

namespace ztolvan {

class TolvanF01;

// What the consultation screen hands to later layers: generation, the
// quotation print and grouping maintenance install themselves here once per
// process. An empty one tells the operator the function is not available yet.
struct AcoesConsulta {
    std::function<void(TolvanF01&)> GerarDocumento;
    std::function<void(TolvanF01&)> Imprimir;
    // Grouping maintenance of the code in column 0 of the selected row, with
    // "Ativo" or "Inativo" from column 2; returns when the screen closed.
    std::function<void(TolvanF01&, const std::string& codigo, bool ativo)> Manutencao;
};
void DefineAcoesConsulta(AcoesConsulta acoes);
AcoesConsulta AcoesConsultaAtuais();

// The grouping consultation screen: groupings above (MSFGAgrupamento),
// the selected grouping's items below (GCon1), the mode by the session's
// origin, keys, the pop-up menu tree and the commands.
class TolvanF01 : public Tela {
  public:
    TolvanF01();
    ~TolvanF01() override;

    // Columns of the item grid.
    enum Coluna {
        ColMarca = 0,
        ColDescricao = 1,
        ColSituacao = 2,
        ColFornecedor = 3,
        ColQtd = 4,
        ColValUnit = 5,
        ColValTotal = 6,
        ColEmbalagem = 7,
        ColEquivalencia = 8,
        ColProduto = 9,
        ColReferencia = 10,
        ColTipo = 11,
    };

    BarraTitulo BarraTitulo1;
    Moldura Frame1;
    Rotulo lblTipo;
    ListaSuspensa cboPesquisa;
    Rotulo lblTipoPesquisa;
    CaixaTexto txtPesquisa;
    Botao bttPesquisa;
    Rotulo Label8;
    Grade MSFGAgrupamento;
    Rotulo LNome;
    // How many items are marked and what they add up to.
    Rotulo LTotais;
    // How many whole groupings the free stock supplies of the marked items
    // (all when none is marked), and which items hold it back.
    Rotulo LDisponibilidade;
    Rotulo Label4;
    Grade GCon1;
    Botao btnVerLista, btnAlterar;
    Rotulo CMensagem;
    Forma shContorno;

    ItemMenu mnuArquivo, mnuLista, mnu_visualizarLista, mnuPesquisarItens, mnuImprimirLista;
    ItemMenu mnuItens, mnuMarcar, mnuDesmarcar, mnuSelecionado, mnuAltQtd;
    ItemMenu mnuNovaPesquisa, mnuGeraDocumentos, mnuCaptura, mnuSair;

    // Form events.
    void Form_Load() override;
    void Form_Activate() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
    void Form_QueryUnload(int& Cancel, int UnloadMode) override;
    void Form_Unload(int& Cancel) override;

    // Commands.
    void sbPesquisaItens();
    void VisualizarLista();
    void sbNovaPesquisa();
    void sbMarcarTodosDaTela();
    void sbDesmarcarTodosDaTela();
    void sbMarcarSelecionado();
    void MnuAltQtd_Click();
    void sbGerarDocumento();
    void sbImprimir();
    void Captura();
    void sbSair();

    // Grouping search and grid.
    void ConfiguraGridAgrupamento();
    void sbPreencheCombo();
    void fPesquisar3(std::string& resultado);
    void fPesquisar2(std::string& resultado);
    void fPesquisar(std::string& resultado);
    void LerCodigo();
    void cboPesquisa_Click();
    void bttPesquisa_Click();
    void txtPesquisa_KeyDown(int& KeyCode, int Shift);
    void MSFGAgrupamento_Click();
    void MSFGAgrupamento_DblClick();

    // Item grid.
    void GridCabecalho();
    void sbPesquisaProdutos();
    void CalculaTotal();

    // The message line: every change rebuilds the footer.
    void DefineMensagem(const std::string& texto);

    // Outcome of the last listing ("00" or the error text) and of the last
    // code/name search.
    const std::string& ResultadoListagem() const { return resultado_; }
    bool NaoAchou() const { return naoAchou_; }
    // The stock count behind LDisponibilidade, item by item.
    const estoque::Disponibilidade& Disponibilidade() const { return disponibilidade_; }

  private:
    enum class Listagem { Todas, TodasSemFiltro, ComEquivalencia };
    void ListaAgrupamentos(Listagem tipo, std::string& resultado, const char* procedimento);
    void MontaRodape();
    void AplicaModo();
    void AtualizaTotais();
    void AtualizaDisponibilidade();
    // Capture of the selected grouping's code: only a whole number goes back.
    void CapturaCodigo(const std::string& codigo);

    std::string resultado_ = "00";
    // The full name of the grouping of each row of the grouping grid (row 0,
    // the header, has none): LNome names the one whose items are shown.
    std::vector<std::string> nomes_{std::string()};
    // The search kind's setting listed every grouping during this load.
    bool listouNaCarga_ = false;
    bool naoAchou_ = false;
    // The free stock of the loaded grouping's products, read with its items:
    // marks and quantity changes recount from it without a statement.
    estoque::SaldoDosProdutos saldos_;
    estoque::Disponibilidade disponibilidade_;
    std::unique_ptr<clsBancoDados> banco_;
    bool bancoAberto_ = false;
};

} // namespace ztolvan
