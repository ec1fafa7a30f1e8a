#ifndef ZTOLVAN_ZTOLVAN_H
#define ZTOLVAN_ZTOLVAN_H
/* The component's C entry point, for hosts that load libztolvan by name
 * (dlopen + dlsym). Same contract as consultalista::ZProcessa: an instance
 * opens the calling thread's connection and must be used on that thread. */
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct zt_consultalista zt_consultalista;

/* One element of ZDadosVendas. */
typedef enum { ZT_VAZIO = 0, ZT_INTEIRO = 1, ZT_DUPLO = 2, ZT_TEXTO = 3 } zt_tipo;
typedef struct {
    zt_tipo tipo;
    int64_t inteiro;
    double duplo;
    const char* texto; /* UTF-8 */
} zt_valor;

/* Class_Initialize / Class_Terminate. zt_cria never returns NULL unless memory runs out. */
zt_consultalista* zt_cria(void);
void zt_destroi(zt_consultalista* c);

/* ZProcessa. Strings are UTF-8. dados/n_dados is ZDadosVendas on entry (NULL
 * when not passed); on return, for origin "F", its text goes to
 * dados_saida (cut to at most dados_saida_tam - 1 bytes, on a character
 * boundary; the full length is returned
 * in *dados_saida_len when not NULL). zstatusmens likewise. The optional
 * by-reference numbers may be NULL (omitted). Returns 0, or -1 when a
 * required pointer is NULL.
 *
 * Read dados_saida (ZDadosVendas) only when *Zstatusret is 0. When the
 * operator leaves without confirming, Zstatusret stays 1 and dados_saida
 * holds what the last consultation of this thread left, not an answer. */
int zt_processa(zt_consultalista* c, int16_t* zEmpresa, const char* zoperador, const char* Zsenha,
                int16_t* zopcao, int32_t* ZCodigo, const char* Zorigem, int32_t* Znumdoc, int16_t* Ztpmov,
                int16_t* Zstatusret, int16_t* zstatus, char* zstatusmens, size_t zstatusmens_tam,
                const zt_valor* dados, size_t n_dados, char* dados_saida, size_t dados_saida_tam,
                size_t* dados_saida_len, int16_t* ztipodepreco, int* zInativos, int* zModoCaptura);

/* A generation preview, as `ztolvan gerar --json --simular` gives it: the
 * grouping found by code, the rows "itens" marked ("todos", "nenhum",
 * "1,3,5", or NULL/"" for the origin's marks), the multiplier, and the same
 * generation path as a real run (numbering, questions, messages), with
 * every change held in one unit and undone at the end: nothing stays in the
 * database. Questions are answered Yes/OK when responde_sim is not 0, else
 * No/Cancel. No window opens. The JSON text goes to saida (cut to at most
 * saida_tam - 1 bytes on a character boundary; the full length in
 * *saida_len): ZProcessa's out parameters, "mensagens", "itens", "linhas"
 * (each with its "explicacao": the price's source and the tax route),
 * "total" and "simulacao": true; or {"erro": "..."} when a row is not in the
 * grid or the database refused the preview. Returns 0, or -1 when a
 * required pointer (c, zoperador, Zorigem, agrupamento) is NULL. */
int zt_simula(zt_consultalista* c, int16_t zEmpresa, const char* zoperador, const char* Zorigem, int32_t Znumdoc,
              int16_t Ztpmov, const zt_valor* dados, size_t n_dados, const char* agrupamento, const char* itens,
              int multiplicador, int responde_sim, char* saida, size_t saida_tam, size_t* saida_len);

/* The component's version text ("1.0.0001"); a static string. */
const char* zt_versao(void);

#ifdef __cplusplus
}
#endif
#endif
