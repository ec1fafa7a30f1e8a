#pragma once
// Generation without a display, as a host or the command line asks for it:
// ZProcessa fills the context (no screen), then the consultation screen's
// model is driven as an operator drives it (the grouping found by code,
// rows marked, quantities changed, the multiplier answered, Ctrl+G) on the
// display-free window system. A preview runs the same path with every
// change held in one unit and undone at the end.
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/mensagens.h"
#include "generation/linhas_geradas.h"
#include "ztolvan/consultalista.h"
#include "ztolvan/valor.h"

namespace ztolvan {

class TolvanF01;

// The grouping found by code on the consultation screen, as the operator
// searches it: how many item rows it loaded.
int BuscaAgrupamento(TolvanF01& f, const std::string& codigo);
// Marks "todos", "nenhum" or data rows "1,3,5"; empty keeps the origin's
// marks. False with the reason when a row is not in the grid.
bool AplicaMarcas(TolvanF01& f, const std::string& itens, std::string& erro);

struct PedidoGeracao {
    int16_t empresa = 1, tpmov = 0;
    int32_t numdoc = 0;
    std::string operador, origem, agrupamento;
    Valor dados; // ZDadosVendas; empty: not passed
    std::optional<int16_t> tipoPreco;
    // "todos", "nenhum", data rows "1,3,5", or empty for the origin's marks.
    std::string itens;
    std::vector<std::string> quantidades; // "ROW=QTD"
    int multiplicador = 1;
    bool simular = false;
    bool explicar = false; // each line carries its explanation
};

// Records every message shown and answers the questions: Yes/OK when
// 'sim', else No/Cancel; 'eco' also sees each message as it comes.
class MensagensRespondidas : public PortaMensagens {
  public:
    explicit MensagensRespondidas(bool sim, std::function<void(const MensagemMostrada&)> eco = {})
        : sim_(sim), eco_(std::move(eco)) {}
    Valor fnMsgbox(const std::string& Texto, int32_t Tipo, const std::string& Titulo, const std::string& Texto1,
                   const std::string&, const std::string&, int32_t, const std::string&) override;
    std::vector<MensagemMostrada> mostradas;

  private:
    bool sim_;
    std::function<void(const MensagemMostrada&)> eco_;
};

struct RespostaGeracao {
    enum class Fim { Gerado, NadaGerado, LinhaInvalida, Banco };
    Fim fim = Fim::NadaGerado;
    std::string erro; // why, for LinhaInvalida and Banco
    int32_t ZCodigo = 0;
    int16_t Zstatusret = 0, zstatus = 0;
    std::string zstatusmens;
    Valor ZDadosVendas;
    std::vector<MensagemMostrada> mensagens;
    std::vector<int32_t> itens;
    std::vector<LinhaGerada> linhas;
    bool simulacao = false;
};

// Runs the request on the calling thread through 'componente' (already
// connected). Messages go to 'mensagens'; 'andamento' hears a long run's
// progress. The thread's window and message ports are given back as they
// were. Never throws.
RespostaGeracao GeraSemTela(consultalista& componente, const PedidoGeracao& p,
                            std::shared_ptr<MensagensRespondidas> mensagens,
                            std::function<void(int feitos, int marcados)> andamento = {});

// The answer as `ztolvan gerar --json` prints it; {"erro": ...} when the
// request could not run (a row not in the grid, the database).
std::string RespostaComoJson(const RespostaGeracao& r);
// As `ztolvan gerar` prints it.
std::string RespostaComoTexto(const RespostaGeracao& r);

} // namespace ztolvan
