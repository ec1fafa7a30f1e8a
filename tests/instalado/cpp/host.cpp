// A C++ host linked with the installed component: ZProcessa through the
// class with zopcao 0, then a preview through the C entry point, on the
// SQLite file of ZTOLVAN_CONFIG. Exit 0 when all holds.
#include <cstdio>
#include <string>

#include <ztolvan/consultalista.h>
#include <ztolvan/ztolvan.h>

namespace {

int falhas = 0;
void Confere(bool ok, const char* o_que) {
    if (!ok) {
        std::fprintf(stderr, "host C++: falhou %s\n", o_que);
        ++falhas;
    }
}

} // namespace

int main() {
    {
        ztolvan::consultalista c;
        int16_t empresa = 1, opcao = 0, tpmov = 0, statusret = -1, zstatus = -1;
        int32_t codigo = 0, numdoc = 1;
        std::string operador = "DEMO", senha, origem = "V", mens = "x";
        ztolvan::Valor dados = ztolvan::Valor::Lista{5102, "1", 0, "SP", "SP", "SP", "SP"};
        c.ZProcessa(empresa, operador, senha, opcao, codigo, origem, numdoc, tpmov, statusret, zstatus, mens,
                    &dados);
        Confere(statusret == 1 && zstatus == 0 && codigo == 0 && mens.empty(), "ZProcessa com zopcao 0");
        Confere(dados.eLista() && dados.tamanho() == 7, "ZDadosVendas de volta");
    }
    zt_consultalista* c = zt_cria();
    Confere(c != nullptr, "zt_cria");
    if (!c) return 1;
    zt_valor dados[7] = {{ZT_INTEIRO, 5102, 0, nullptr}, {ZT_TEXTO, 0, 0, "1"},  {ZT_INTEIRO, 0, 0, nullptr},
                         {ZT_TEXTO, 0, 0, "SP"},         {ZT_TEXTO, 0, 0, "SP"}, {ZT_TEXTO, 0, 0, "SP"},
                         {ZT_TEXTO, 0, 0, "SP"}};
    std::string json(65536, '\0');
    size_t tamanho = 0;
    Confere(zt_simula(c, 1, "DEMO", "V", 1, 0, dados, 7, "000101", "1", 1, 0, json.data(), json.size(),
                      &tamanho) == 0,
            "zt_simula");
    json.resize(tamanho);
    Confere(json.find("\"simulacao\": true") != std::string::npos, "a prévia");
    Confere(json.find("\"Produto\": \"1001\"") != std::string::npos, "a linha");
    zt_destroi(c);
    if (falhas == 0) std::puts("host C++: ok");
    return falhas == 0 ? 0 : 1;
}
