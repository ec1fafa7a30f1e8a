#include "common/contexto.h"
#include "common/formato.h"
#include "common/mensagens.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/modules/modulos.h"
#include "entry/sessao.h"
#include "generation/comum.h"
#include "generation/geracao.h"
#include "precos/trapa.h"
#include "screens/auxiliary/tolvanf05.h"
#include "screens/relato.h"
#include "screens/tela.h"

namespace ztolvan {

using namespace geracao;

void sbGerarDocumento(TelaGeracao& t) {
    Protegido(EstiloErro::Log, "sbGerarDocumento", "TolvanF01", [&](int& linha) {
        linha = 10;
        EstadoAtual().itens.clear();
        EstadoAtual().explicacoes.clear();
        const int n = t.GCon1.Rows() - 1;
        bool marcado = false;
        for (int r = 1; r <= n && !marcado; ++r)
            marcado = Marcada(t.GCon1, r);
        if (!marcado) {
            Avisa("Deve-se selecionar algum Produto");
            return;
        }
        linha = 20;
        // The dialog is kept per thread, as the screens are.
        MostraModal(Contexto::Atual().Parte<TolvanF05>());
        linha = 30;
        int marcadas = 0;
        for (int r = 1; r <= n; ++r)
            marcadas += t.GCon1.TextMatrix(r, 0) == "*" ? 1 : 0;
        ComecaAndamento(marcadas);
        const std::string origem = Normaliza(SessaoAtual().Origem);
        if (origem == "D") {
            ConfDocumento();
            GeraDocumento(t);
        } else if (origem == "C") {
            GeraCompra(t);
        } else if (origem == "V") {
            GeraVenda(t);
        }
    });
}

void FazCommit() {
    Trapa("FazCommit", "TolvanF01", [&](int& linha) {
        linha = 10;
        A_MTBMATAG().Transacao = "COMMIT";
        MTBMATAG();
        linha = 20;
        if (ComunicaAtual().Status != status::Ok) MostraErroCommit();
    });
}

const std::vector<int32_t>& ItensGerados() { return EstadoAtual().itens; }

std::string TextoAndamento(int feitos, int marcados) {
    return "Gerando item " + Formata(feitos, "#,##0") + " de " + Formata(marcados, "#,##0");
}

} // namespace ztolvan
