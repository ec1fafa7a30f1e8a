#pragma once
#include <cstdint>
#include <string>

#include "common/valor.h"

namespace ztolvan {

// The per-thread working context that ZProcessa fills and every screen reads.
struct Sessao {
    // Host context.
    int16_t Empresa = 0;
    std::string Operador;
    std::string Origem;
    std::string OrigemTrim;
    bool OrigemDocumento = false;
    int32_t NumDoc = 0;
    int16_t TpMov = 0;
    int16_t NatOper = 0;
    std::string DadosVenda1;
    int16_t DadosVenda2 = 0;
    std::string DadosVenda3;
    std::string DadosVenda4;
    std::string DadosVenda5;
    std::string DadosVenda6;
    int32_t CodFor = 0;

    // What the screens hand back.
    int32_t StatusRet = 0;
    Valor DadosRetorno;

    // Companies and price type.
    int16_t EmpresaOrigem = 0;
    int16_t EmpresaConsulta = 0;
    int16_t EmpresaPreco = 0;
    std::string TipoPreco;

    // Settings.
    int16_t PrecoVenda = 0;
    std::string TipoPrecoCompra;
    std::string BloqueiaItens;
    std::string CustoPrecoEmpresaOrigem;
    std::string TamanhoCodigoItem;
    std::string DescricaoAgrupamento;
    std::string QtdPosicoesAgrupamento;
    std::string CompraPrcVen;
    std::string DescontoCascata;
    std::string CobraICMSSubstituto;
    std::string ICMSAntecipado;
    std::string ImpressoraMatricial;

    // ICMS rates found by the last rate lookup.
    double PercICMS = 0;
    double PercICMSF = 0;

    std::string Versao;
};

// The calling thread's Sessao.
Sessao& SessaoAtual();

} // namespace ztolvan
