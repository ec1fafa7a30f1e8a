/* A C host built against the installed component only: its flags from
 * pkg-config, the library loaded by name at run time. It calls ZProcessa with
 * zopcao 0 and previews a sales order on the SQLite file of ZTOLVAN_CONFIG,
 * and checks what comes back. Exit 0 when all holds. */
#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

#include <ztolvan/ztolvan.h>

#define CONFERE(cond)                                                   \
    do {                                                                \
        if (!(cond)) {                                                  \
            fprintf(stderr, "host C: falhou %s (linha %d)\n", #cond, __LINE__); \
            return 1;                                                   \
        }                                                               \
    } while (0)

/* With "sem-telas": the screens module is not installed and no display is
 * set; zopcao 1 must come back with Zstatusret 1, never a crash. */
int main(int argc, char** argv) {
    void* lib = dlopen("libztolvan.so.1", RTLD_NOW | RTLD_LOCAL);
    CONFERE(lib != NULL);
    zt_consultalista* (*cria)(void) = (zt_consultalista * (*)(void)) dlsym(lib, "zt_cria");
    void (*destroi)(zt_consultalista*) = (void (*)(zt_consultalista*))dlsym(lib, "zt_destroi");
    const char* (*versao)(void) = (const char* (*)(void))dlsym(lib, "zt_versao");
    __typeof__(&zt_processa) processa = (__typeof__(&zt_processa))dlsym(lib, "zt_processa");
    __typeof__(&zt_simula) simula = (__typeof__(&zt_simula))dlsym(lib, "zt_simula");
    CONFERE(cria && destroi && versao && processa && simula);
    CONFERE(strncmp(versao(), "1.0", 3) == 0);

    zt_consultalista* c = cria();
    CONFERE(c != NULL);
    if (argc > 1 && strcmp(argv[1], "sem-telas") == 0) {
        int16_t empresa = 1, opcao = 1, tpmov = 0, statusret = -1, zstatus = -1;
        int32_t codigo = 0, numdoc = 1;
        char mens[256] = "x";
        zt_valor dados[7] = {{ZT_INTEIRO, 5102, 0, NULL}, {ZT_TEXTO, 0, 0, "1"},  {ZT_INTEIRO, 0, 0, NULL},
                             {ZT_TEXTO, 0, 0, "SP"},      {ZT_TEXTO, 0, 0, "SP"}, {ZT_TEXTO, 0, 0, "SP"},
                             {ZT_TEXTO, 0, 0, "SP"}};
        CONFERE(processa(c, &empresa, "DEMO", "", &opcao, &codigo, "V", &numdoc, &tpmov, &statusret, &zstatus,
                         mens, sizeof mens, dados, 7, NULL, 0, NULL, NULL, NULL, NULL) == 0);
        CONFERE(statusret == 1);
        destroi(c);
        puts("host C sem o módulo de telas: ok");
        return 0;
    }
    zt_valor dados[7] = {{ZT_INTEIRO, 5102, 0, NULL}, {ZT_TEXTO, 0, 0, "1"},  {ZT_INTEIRO, 0, 0, NULL},
                         {ZT_TEXTO, 0, 0, "SP"},      {ZT_TEXTO, 0, 0, "SP"}, {ZT_TEXTO, 0, 0, "SP"},
                         {ZT_TEXTO, 0, 0, "SP"}};
    int16_t empresa = 1, opcao = 0, tpmov = 0, statusret = -1, zstatus = -1;
    int32_t codigo = 0, numdoc = 1;
    char mens[256] = "x";
    CONFERE(processa(c, &empresa, "DEMO", "", &opcao, &codigo, "V", &numdoc, &tpmov, &statusret, &zstatus, mens,
                     sizeof mens, dados, 7, NULL, 0, NULL, NULL, NULL, NULL) == 0);
    CONFERE(statusret == 1 && zstatus == 0 && codigo == 0 && mens[0] == '\0');

    static char json[65536];
    size_t tamanho = 0;
    CONFERE(simula(c, 1, "DEMO", "V", 1, 0, dados, 7, "000101", "1,2", 2, 0, json, sizeof json, &tamanho) == 0);
    CONFERE(tamanho == strlen(json));
    CONFERE(strstr(json, "\"simulacao\": true") != NULL);
    CONFERE(strstr(json, "\"Zstatusret\": 0") != NULL);
    CONFERE(strstr(json, "\"Produto\": \"1002\"") != NULL);
    CONFERE(strstr(json, "\"preco\": \"valor do agrupamento\"") != NULL);
    destroi(c);
    dlclose(lib);
    puts("host C: ok");
    return 0;
}
