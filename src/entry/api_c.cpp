#include <new>
#include <string>

#include "common/conversao.h"
#include "entry/zt_consultalista.h"

using ztolvan::c::Copia;
using ztolvan::c::Vetor;

extern "C" {

zt_consultalista* zt_cria(void) {
    try {
        return new zt_consultalista;
    } catch (...) {
        return nullptr;
    }
}

void zt_destroi(zt_consultalista* c) { delete c; }

int zt_processa(zt_consultalista* c, int16_t* zEmpresa, const char* zoperador, const char* Zsenha,
                int16_t* zopcao, int32_t* ZCodigo, const char* Zorigem, int32_t* Znumdoc, int16_t* Ztpmov,
                int16_t* Zstatusret, int16_t* zstatus, char* zstatusmens, size_t zstatusmens_tam,
                const zt_valor* dados, size_t n_dados, char* dados_saida, size_t dados_saida_tam,
                size_t* dados_saida_len, int16_t* ztipodepreco, int* zInativos, int* zModoCaptura) {
    if (!c || !zEmpresa || !zopcao || !ZCodigo || !Znumdoc || !Ztpmov || !Zstatusret || !zstatus) return -1;
    try {
        std::string operador = zoperador ? zoperador : "", senha = Zsenha ? Zsenha : "",
                    origem = Zorigem ? Zorigem : "", mens;
        ztolvan::Valor vetor = Vetor(dados, n_dados);
        bool inativos = zInativos && *zInativos, captura = zModoCaptura && *zModoCaptura;
        // Origin "F" hands data back in ZDadosVendas even when none came in.
        ztolvan::Valor* pdados = (dados || origem == "F") ? &vetor : nullptr;
        c->instancia.ZProcessa(*zEmpresa, operador, senha, *zopcao, *ZCodigo, origem, *Znumdoc, *Ztpmov,
                               *Zstatusret, *zstatus, mens, pdados, ztipodepreco,
                               zInativos ? &inativos : nullptr, zModoCaptura ? &captura : nullptr);
        Copia(mens, zstatusmens, zstatusmens_tam);
        std::string saida = origem == "F" ? ztolvan::CStr(vetor) : std::string();
        Copia(saida, dados_saida, dados_saida_tam);
        if (dados_saida_len) *dados_saida_len = saida.size();
        return 0;
    } catch (...) {
        return -1;
    }
}

const char* zt_versao(void) {
    static const std::string v = ztolvan::consultalista::Versao();
    return v.c_str();
}

} // extern "C"
