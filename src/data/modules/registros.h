#pragma once
// The records of the table-access modules, each declared once as a list of
// columns (name, type with width) in the order of its statements. The same
// list gives the struct, the column table behind move-in, key and record
// arrays, and the column lists written into the statements.
#include <cstdint>
#include <string>

#include "data/modules/registro.h"

// Hand-laid tables: one row a line, kept as written.
// clang-format off
namespace ztolvan {

// TBPAR (45 columns).
#define ZT_COLUNAS_TBPAR(X) \
    X(Empresa, int16_t) X(RazSocial, Texto<40>) X(NomeFant, Texto<40>) X(CGC, Texto<14>) X(InscEstad, Texto<18>) \
    X(InscMun, Texto<18>) X(Endereco, Texto<40>) X(Bairro, Texto<15>) X(Cidade, Texto<15>) X(UF, Texto<2>) \
    X(Pais, Texto<15>) X(CEP, Texto<8>) X(CxaPostal, Texto<5>) X(Tipo1, Texto<1>) X(DDI1, Texto<5>) \
    X(DDD1, Texto<4>) X(Telefone1, Texto<8>) X(Ramal1, Texto<4>) X(Tipo2, Texto<1>) X(DDI2, Texto<5>) \
    X(DDD2, Texto<4>) X(Telefone2, Texto<8>) X(Ramal2, Texto<4>) X(Tipo3, Texto<1>) X(DDI3, Texto<5>) \
    X(DDD3, Texto<4>) X(Telefone3, Texto<8>) X(Ramal3, Texto<4>) X(Tipo4, Texto<1>) X(DDI4, Texto<5>) \
    X(DDD4, Texto<4>) X(Telefone4, Texto<8>) X(Ramal4, Texto<4>) X(Atividade, Texto<4>) X(AutorizaLD, Texto<20>) \
    X(PerCusFixo, double) X(PerPis, double) X(PerCofins, double) X(PerCPMF, double) X(PerIRPJ, double) \
    X(PerCSSL, double) X(CritPrcVenda, int16_t) X(PisCumul, int16_t) X(CofinsCumul, int16_t) \
    X(ValMinFatura, double)
ZT_REGISTRO(A_MTBPAR_t, ZT_COLUNAS_TBPAR)

// TBPNF (38 columns).
#define ZT_COLUNAS_TBPNF(X) \
    X(EMPRESA, int16_t) X(CODIGO, int16_t) X(DESCRICAO, Texto<40>) X(FLGCUNIT, Texto<1>) X(FLGCMED, Texto<1>) \
    X(FLGES, Texto<1>) X(FLGFC, Texto<1>) X(FLGCPAD, Texto<1>) X(FLGDUP, Texto<1>) X(ULTSEQ, int32_t) \
    X(EMISSOR, Texto<12>) X(PERCUNIT, double) X(FCALCCUNIT, Texto<1>) X(FCALCCMED, Texto<1>) X(CTAFC, Texto<20>) \
    X(CTAIPI, Texto<20>) X(CTAICMS, Texto<20>) X(CTAIR, Texto<20>) X(CTAEST, Texto<20>) X(STATUS, Texto<1>) \
    X(QTDITENS, int16_t) X(CODORIGEM, int16_t) X(CODICMS, int16_t) X(TIPOPEDIDO, Texto<1>) X(ATUDADOS, Texto<1>) \
    X(TIPODOC, Texto<1>) X(GERENCIAL, Texto<1>) X(EMITE, Texto<2>) X(NFEMISS, Texto<8>) X(DUPEMISS, Texto<8>) \
    X(RECEMISS, Texto<8>) X(BLOEMISS, Texto<8>) X(MASCARA, Texto<15>) X(CRITICA, Texto<1>) \
    X(CODTIPODUP, int16_t) X(VALISS, double) X(TPSERCOM, Texto<1>) X(CODPRO, Texto<5>)
ZT_REGISTRO(A_MTBPNF_t, ZT_COLUNAS_TBPNF)

// TBDOC (75 columns).
#define ZT_COLUNAS_TBDOC(X) \
    X(Empresa, int16_t) X(Seq, int32_t) X(TpMov, int16_t) X(SeqMov, int32_t) X(NumNF, Texto<12>) \
    X(SerieNF, Texto<3>) X(TipoFC, Texto<1>) X(CodFC, int32_t) X(NumPed, int32_t) X(Endereco, Texto<64>) \
    X(Bairro, Texto<20>) X(Cidade, Texto<40>) X(UF, Texto<2>) X(Pais, Texto<15>) X(CEP, Texto<8>) \
    X(CxaPostal, Texto<5>) X(CodTransp, int32_t) X(Depto, int32_t) X(Vendedor, int32_t) X(NatOper, int16_t) \
    X(ResFrete, Texto<1>) X(ValFrete, double) X(ValSeguro, double) X(ValAcres, double) X(ValDesc, double) \
    X(IR, double) X(BaseICMS, double) X(ValICMS, double) X(BaseICMSSub, double) X(ValICMSSub, double) \
    X(ValIPI, double) X(ValTotProd, double) X(ValTotNota, double) X(TotItens, int16_t) X(TotDup, int16_t) \
    X(DtAtDoc, Texto<8>) X(HrAtDoc, Texto<6>) X(DtEmDoc, Texto<8>) X(DTESDoc, Texto<8>) X(Status, Texto<1>) \
    X(NomeFC, Texto<60>) X(NumPedFC, Texto<10>) X(OBS, Texto<250>) X(LocalICMS, Texto<1>) X(CodRep, int32_t) \
    X(ValISS, double) X(CodTipoDup, int16_t) X(StatusImp, int16_t) X(NomeNop, Texto<30>) X(LanAtu, int16_t) \
    X(TipoCre, Texto<1>) X(DtCanc, Texto<8>) X(CodBco, Texto<3>) X(CodAge, Texto<5>) X(CodCta, Texto<12>) \
    X(StAtu, int16_t) X(StImp, int16_t) X(StFormImp, int16_t) X(StTr, int16_t) X(AutorizaLD, Texto<20>) \
    X(MotCancela, int16_t) X(GeraComiss, int16_t) X(NumEmpenho, Texto<12>) X(ValDespAcess, double) \
    X(ImpImposto, double) X(ImpPis, double) X(ImpCofins, double) X(BaseIPI, double) X(ValDescZona, double) \
    X(ValSubsidio, double) X(TipoConv, int16_t) X(ValDescConv, double) X(TipoServico, Texto<1>) \
    X(SeqConv, int32_t) X(CodCidade, int32_t)
ZT_REGISTRO(A_MTBDOC_t, ZT_COLUNAS_TBDOC)

// TBICM (5 columns).
#define ZT_COLUNAS_TBICM(X) \
    X(EMPRESA, int16_t) X(CODIGO, int16_t) X(PERCICMS, double) X(OBS, Texto<250>) X(PERCICMSF, double)
ZT_REGISTRO(A_MTBICM_t, ZT_COLUNAS_TBICM)

// TBVEN (11 columns).
#define ZT_COLUNAS_TBVEN(X) \
    X(EMPRESA, int16_t) X(CODVEND, int32_t) X(CODGER, int32_t) X(NOME, Texto<40>) X(DEPTO, int32_t) \
    X(CARGO, Texto<20>) X(PERCOMIS, double) X(PERCOMIS2, double) X(PERCOMIS3, double) X(PERCOMIS4, double) \
    X(QUOTAMINVEN, double)
ZT_REGISTRO(A_MTBVEN_t, ZT_COLUNAS_TBVEN)

// TBREP (6 columns).
#define ZT_COLUNAS_TBREP(X) \
    X(CODREPCOM, int32_t) X(RAZSOCIAL, Texto<40>) X(PERCOMIS, double) X(PERCOMIS2, double) X(PERCOMIS3, double) \
    X(PERCOMIS4, double)
ZT_REGISTRO(A_MTBREP_t, ZT_COLUNAS_TBREP)

// TBDOCIT (59 columns).
#define ZT_COLUNAS_TBDOCIT(X) \
    X(Empresa, int16_t) X(Seq, int32_t) X(NumNF, Texto<12>) X(SerieNF, Texto<3>) X(Item, int32_t) \
    X(CodMat, Texto<20>) X(CodMat2, Texto<20>) X(DscMat, Texto<700>) X(UndMat, Texto<2>) X(ValUnit, double) \
    X(CustMedAnt, double) X(CustMedAtu, double) X(QtdUnd, double) X(QtdMat, double) X(QtdEst, double) \
    X(ClFisIPI, Texto<12>) X(PercIPI, double) X(PercICMS, double) X(SitTrib, Texto<1>) X(FlCMES, Texto<1>) \
    X(SeqMat, int32_t) X(Status, Texto<1>) X(ValFrete, double) X(ValSeguro, double) X(ValAcresc, double) \
    X(ValDesc, double) X(ComissVnd, double) X(ComissRep, double) X(PercICMSS, double) X(TpMov, int16_t) \
    X(GrpMat, Texto<12>) X(DtAtDoc, Texto<8>) X(HrAtDoc, Texto<6>) X(ValTotal, double) X(DtEmDoc, Texto<8>) \
    X(StAtu, int16_t) X(StImp, int16_t) X(StFormImp, int16_t) X(StTr, int16_t) X(ValICMSS, double) \
    X(ProdConsig, Texto<1>) X(CustoCtb, double) X(CustoGer, double) X(MargemLiq, double) X(BaseICMS, double) \
    X(ValICMS, double) X(BaseICMSS, double) X(BaseIPI, double) X(ValIPI, double) X(ValDespAcess, double) \
    X(NatOper, int16_t) X(CodSitTrib, Texto<2>) X(CCusto, Texto<20>) X(ValDescZona, double) X(ValItem, double) \
    X(ValDescConv, double) X(TipoConv, int16_t) X(Bloqueio, int16_t) X(PrecoVenda, int16_t)
ZT_REGISTRO(A_MTBDOCIT_t, ZT_COLUNAS_TBDOCIT)

// TBMAT (84 columns).
#define ZT_COLUNAS_TBMAT(X) \
    X(Empresa, int16_t) X(CodItem, Texto<20>) X(DscItem, Texto<100>) X(GrpItem, Texto<12>) \
    X(GrpItem2, Texto<12>) X(GrpItem3, Texto<12>) X(GrpItem4, Texto<12>) X(Dispon, Texto<1>) \
    X(DtUltVend, Texto<8>) X(HoraUltVend, Texto<6>) X(UltNFVend, Texto<12>) X(ValUltVend, double) \
    X(DTBA, Texto<8>) X(QtdItAnt, double) X(QtdItEntr, double) X(QtdItSaida, double) X(QtdItAtu, double) \
    X(QtdItBloq, double) X(QtdItDan, double) X(PrcItem, double) X(PrcProm, double) X(DtIProm, Texto<8>) \
    X(DtFProm, Texto<8>) X(UltCData, Texto<8>) X(UltCForn, int32_t) X(RazFornec, Texto<60>) X(UltCQtd, double) \
    X(UltCValor, double) X(CustMed, double) X(CustPadr, double) X(UndItem, Texto<2>) X(Embal, Texto<2>) \
    X(QtdEmbal, double) X(EstReserva, double) X(EstMin, double) X(EstMax, double) X(IPI, double) \
    X(ClasABC, Texto<1>) X(ClasFiscal, Texto<12>) X(SitTrib, Texto<1>) X(PercIsen, double) X(CodICMSS, int16_t) \
    X(RedICMS, double) X(LoteEcon, double) X(PerComis, double) X(PerDesc, double) X(MargVend, double) \
    X(GiroIdeal, double) X(Foto, Texto<25>) X(Mensagem, Texto<64>) X(SeqMat, int32_t) X(NumDocComp, int32_t) \
    X(NumDocVend, int32_t) X(UltNFComp, Texto<12>) X(QtdUltVend, double) X(MultVenda, double) \
    X(Gondola, Texto<8>) X(CodEquiv, Texto<20>) X(PrcItem2, double) X(PrcItem3, double) X(PrcItem4, double) \
    X(PercPrc1, double) X(PercPrc2, double) X(PercPrc3, double) X(ClasABCVol, Texto<1>) X(TPDist, int16_t) \
    X(StTr, int16_t) X(DtVal, Texto<8>) X(DtAtMat, Texto<8>) X(CustoCtb, double) X(TemAutLD, int16_t) \
    X(CodRetICMS, int16_t) X(NBM, Texto<12>) X(PisTrib, int16_t) X(CofinsTrib, int16_t) X(DtInc, Texto<8>) \
    X(HrInc, Texto<8>) X(DtAtu, Texto<8>) X(HrAtu, Texto<8>) X(RedIcmsEnt, double) X(NatOper, int16_t) \
    X(IncluiJuros, Texto<1>) X(CCusto, Texto<20>) X(RedCredIcms, double)
ZT_REGISTRO(A_MTBMAT_t, ZT_COLUNAS_TBMAT)

// TBPEV (50 columns).
#define ZT_COLUNAS_TBPEV(X) \
    X(Empresa, int16_t) X(NumPed, int32_t) X(DataPed, Texto<8>) X(HoraPed, Texto<6>) X(CodCli, int32_t) \
    X(Endereco, Texto<64>) X(Bairro, Texto<20>) X(Cidade, Texto<40>) X(UF, Texto<2>) X(Pais, Texto<15>) \
    X(CEP, Texto<8>) X(CxaPostal, Texto<5>) X(NumPedCli, Texto<10>) X(CodTransp, int32_t) X(Depto, int32_t) \
    X(CodVendedor, int32_t) X(NatOper, int16_t) X(ResFrete, Texto<1>) X(ISSICMS, double) X(DtVal, Texto<8>) \
    X(ValPed, double) X(TotItens, int16_t) X(SeqDoc, int32_t) X(TpTrans, Texto<1>) X(Status, Texto<1>) \
    X(OBS, Texto<250>) X(NomeCli, Texto<60>) X(Fax, Texto<12>) X(Contato, Texto<35>) X(TipoImposto, Texto<1>) \
    X(OrigemPed, int32_t) X(TpMov, int16_t) X(LocalICMS, Texto<1>) X(CodRep, int32_t) X(ValDesc, double) \
    X(StTr, int16_t) X(ValProduto, double) X(ValFrete, double) X(ValSeguro, double) X(ValDespAcess, double) \
    X(ValAcrescimo, double) X(Seq, int32_t) X(StatusDoc, Texto<1>) X(ValDescZona, double) X(ValSubsidio, double) \
    X(TipoConv, int16_t) X(ValDescConv, double) X(DataSai, Texto<8>) X(Referencia, Texto<200>) \
    X(CodCidade, int32_t)
ZT_REGISTRO(A_MTBPEV_t, ZT_COLUNAS_TBPEV)

// TBPEVIT (34 columns).
#define ZT_COLUNAS_TBPEVIT(X) \
    X(Empresa, int16_t) X(NumPed, int32_t) X(Item, int32_t) X(CodMat, Texto<20>) X(CodMat2, Texto<20>) \
    X(DscMat, Texto<100>) X(UndMat, Texto<2>) X(ValUnit, double) X(QtdMat, double) X(ClFisIPI, Texto<12>) \
    X(PercIPI, double) X(PercICMS, double) X(SitTrib, Texto<1>) X(MotPerda, int16_t) X(PrazoEnt, int16_t) \
    X(SitItem, Texto<1>) X(OrigemPed, int32_t) X(ComissVnd, double) X(ComissRep, double) X(PercICMSS, double) \
    X(GrpMat, Texto<12>) X(ValTotal, double) X(StTr, int16_t) X(NatOper, int16_t) X(ICMSDesp, double) \
    X(ValItem, double) X(ValDesc, double) X(CodSitTrib, Texto<2>) X(CCusto, Texto<20>) X(ValDescZona, double) \
    X(ValDescConv, double) X(TipoConv, int16_t) X(Bloqueio, int16_t) X(PrecoVenda, int16_t)
ZT_REGISTRO(A_MTBPEVIT_t, ZT_COLUNAS_TBPEVIT)

// TBPEVDC (8 columns).
#define ZT_COLUNAS_TBPEVDC(X) \
    X(EMPRESA, int16_t) X(NUMPED, int32_t) X(ITEM, int32_t) X(DESC1, double) X(DESC2, double) X(DESC3, double) \
    X(DESC4, double) X(DESC5, double)
ZT_REGISTRO(A_MTBPEVDC_t, ZT_COLUNAS_TBPEVDC)

// TBICMUF (8 columns).
#define ZT_COLUNAS_TBICMUF(X) \
    X(EMPRESA, int16_t) X(CODIGO, int16_t) X(UF, Texto<2>) X(PERCICMSF, double) X(CAMPOLIVRE1, Texto<100>) \
    X(CAMPOLIVRE2, int32_t) X(CAMPOLIVRE3, double) X(STATUS, int16_t)
ZT_REGISTRO(A_MTBICMUF_t, ZT_COLUNAS_TBICMUF)

// TBPEC (53 columns).
#define ZT_COLUNAS_TBPEC(X) \
    X(Empresa, int16_t) X(NumPed, int32_t) X(DataPed, Texto<8>) X(HoraPed, Texto<6>) X(NumComp, int32_t) \
    X(CodFor, int32_t) X(NomeFor, Texto<60>) X(NumPedFor, Texto<10>) X(CodTrans, int32_t) X(CodComp, int32_t) \
    X(Depto, int32_t) X(ResFrete, Texto<1>) X(ICMS, double) X(ValPed, double) X(TotItens, int16_t) \
    X(SeqDoc, int32_t) X(TpTrans, Texto<1>) X(Fax, Texto<12>) X(Contato, Texto<35>) X(DtPrevEnt, Texto<8>) \
    X(DtPrevEnt2, Texto<8>) X(DtPrevEnt3, Texto<8>) X(DtPrevEnt4, Texto<8>) X(OrigemPed, int32_t) \
    X(Status, Texto<1>) X(Obs, Texto<250>) X(NatOper, int16_t) X(ValFrete, double) X(ValSeguro, double) \
    X(ValAcresc, double) X(ValDesc, double) X(TpMov, int16_t) X(NumNF, Texto<12>) X(SerieNF, Texto<3>) \
    X(DtENT, Texto<8>) X(DtColeta, Texto<8>) X(DtEmiss, Texto<8>) X(DtAtual, Texto<8>) X(HrAtual, Texto<6>) \
    X(Percomiss, double) X(PerComp, double) X(DtPgto, Texto<1>) X(StTr, int16_t) X(BaseIPI, double) \
    X(BaseIcms, double) X(BaseSub, double) X(ValIpi, double) X(ValSub, double) X(ValFreteFob, double) \
    X(FlagDigita, Texto<1>) X(ValDespAcess, double) X(Seq, int32_t) X(NumEmpenho, Texto<12>)
ZT_REGISTRO(A_MTBPEC_t, ZT_COLUNAS_TBPEC)

// TBPECIT (70 columns).
#define ZT_COLUNAS_TBPECIT(X) \
    X(Empresa, int16_t) X(NumPed, int32_t) X(CodFor, int32_t) X(Item, int32_t) X(CodMat, Texto<20>) \
    X(CodMat2, Texto<20>) X(DscMat, Texto<100>) X(UndMat, Texto<2>) X(ValUnit, double) X(QtdMat, double) \
    X(ClFisIPI, Texto<12>) X(PercIPI, double) X(SitItem, Texto<1>) X(OrigemPed, int32_t) X(PrecoTab, double) \
    X(Desc1, double) X(Desc2, double) X(Desc3, double) X(Desc4, double) X(Desc5, double) X(Desc6, double) \
    X(Desc7, double) X(Desc8, double) X(EncFin, double) X(Emb, double) X(Frete, double) X(FreteFob, double) \
    X(MultVend, double) X(PercICMS, double) X(PercICMSS, double) X(SitTrib, Texto<1>) X(GrpMat, Texto<12>) \
    X(QtdRec, double) X(ValRec, double) X(BaseIcmsSub, double) X(StTr, int16_t) X(PerCusFixo, double) \
    X(PerPis, double) X(PerCofins, double) X(PerMargem, double) X(FreteEmbut, double) X(PerCPMF, double) \
    X(PerIRPJ, double) X(PerCSSL, double) X(PerICMSVenda, double) X(PerICMSFrete, double) X(PerIPIVenda, double) \
    X(Per1, double) X(Per2, double) X(Per3, double) X(ValFrete, double) X(ValSeguro, double) \
    X(ValAcresc, double) X(ValDesc, double) X(BaseIpi, double) X(BaseIcms, double) X(ValIpi, double) \
    X(ValIcms, double) X(ValSub, double) X(ValFreteFob, double) X(ICMSDesp, double) X(ICMSRed, double) \
    X(DespAcess, double) X(Seguro, double) X(Acrescimo, double) X(ValDespAcess, double) X(NatOper, int16_t) \
    X(CodSitTrib, Texto<2>) X(RedCredIcms, double) X(CCusto, Texto<20>)
ZT_REGISTRO(A_MTBPECIT_t, ZT_COLUNAS_TBPECIT)

// TBCUS (51 columns).
#define ZT_COLUNAS_TBCUS(X) \
    X(Empresa, int16_t) X(CodMat, Texto<20>) X(CodFor, int32_t) X(PrecoTab, double) X(Desc1, double) \
    X(Desc2, double) X(Desc3, double) X(Desc4, double) X(Desc5, double) X(Desc6, double) X(Desc7, double) \
    X(Desc8, double) X(ICMS, double) X(ICMSS, double) X(SitTrib, Texto<1>) X(EncFin, double) X(IPI, double) \
    X(Emb, double) X(Frete, double) X(ValFreteFob, double) X(MultVen, double) X(DtUltAlt, Texto<8>) \
    X(FreteFob, double) X(StTr, int16_t) X(CustoCtb, double) X(CustoGer, double) X(PerCusFixo, double) \
    X(PerPIS, double) X(PerCofins, double) X(FreteEmbut, double) X(PerMargem, double) X(PerCPMF, double) \
    X(PerIRPJ, double) X(PerCSSL, double) X(PerICMSVenda, double) X(PerICMSFrete, double) X(PerIPIVenda, double) \
    X(Per1, double) X(Per2, double) X(Per3, double) X(DtInc, Texto<8>) X(HrInc, Texto<6>) X(DtAtu, Texto<8>) \
    X(HrAtu, Texto<6>) X(ICMSDesp, double) X(ICMSRed, double) X(DespAcess, double) X(Seguro, double) \
    X(Acrescimo, double) X(CodSitTrib, Texto<2>) X(RedCredIcms, double)
ZT_REGISTRO(A_MTBCUS_t, ZT_COLUNAS_TBCUS)

// TBFOR (47 columns).
#define ZT_COLUNAS_TBFOR(X) \
    X(EMPRESA, int16_t) X(CODFORN, int32_t) X(FISJURID, Texto<1>) X(RAZSOCIAL, Texto<60>) X(NOMEFANT, Texto<40>) \
    X(ENDERECO, Texto<40>) X(BAIRRO, Texto<20>) X(CIDADE, Texto<20>) X(UF, Texto<2>) X(PAIS, Texto<15>) \
    X(CEP, Texto<8>) X(CXAPOSTAL, Texto<5>) X(TIPO1, Texto<1>) X(DDI1, Texto<5>) X(DDD1, Texto<4>) \
    X(TELEFONE1, Texto<8>) X(RAMAL1, Texto<4>) X(TIPO2, Texto<1>) X(DDI2, Texto<5>) X(DDD2, Texto<4>) \
    X(TELEFONE2, Texto<8>) X(RAMAL2, Texto<4>) X(TIPO3, Texto<1>) X(DDI3, Texto<5>) X(DDD3, Texto<4>) \
    X(TELEFONE3, Texto<8>) X(RAMAL3, Texto<4>) X(TIPO4, Texto<1>) X(DDI4, Texto<5>) X(DDD4, Texto<4>) \
    X(TELEFONE4, Texto<8>) X(RAMAL4, Texto<4>) X(ATIVIDADE, Texto<4>) X(CGCCPF, Texto<14>) \
    X(INSCESTAD, Texto<18>) X(INSCMUN, Texto<18>) X(CODCOMPR, int32_t) X(NOMECOMPR, Texto<35>) \
    X(CTACONTAB, Texto<20>) X(CLASSABC, Texto<1>) X(TIPODOC, Texto<1>) X(CODBCO, Texto<3>) X(CODAGE, Texto<5>) \
    X(CODCTA, Texto<12>) X(OBS, Texto<150>) X(FLAGIPI, int16_t) X(STTR, int16_t)
ZT_REGISTRO(A_MTBFOR_t, ZT_COLUNAS_TBFOR)

// TBMATEQ (38 columns).
#define ZT_COLUNAS_TBMATEQ(X) \
    X(Empresa, int16_t) X(CodEquiv, Texto<20>) X(Tipo, int16_t) X(CodItem, Texto<20>) X(UndItem, Texto<2>) \
    X(QtdUnd, double) X(Valor, double) X(PerValor, double) X(Nivel, int16_t) X(DtIProm, Texto<8>) \
    X(DtFProm, Texto<8>) X(PrcProm, double) X(StTr, int16_t) X(DscItem, Texto<60>) X(GrpItem, Texto<12>) \
    X(GrpItem2, Texto<12>) X(GrpItem3, Texto<12>) X(GrpItem4, Texto<12>) X(UltCForn, int32_t) \
    X(RazFornec, Texto<60>) X(CodRef, Texto<20>) X(Dispon, Texto<1>) X(IPI, double) X(ClasFiscal, Texto<12>) \
    X(SitTrib, Texto<1>) X(PercIsen, double) X(CodICMSS, int16_t) X(PerComis, double) X(PerDesc, double) \
    X(Foto, Texto<25>) X(Mensagem, Texto<64>) X(TemAutLD, int16_t) X(PesoLiquido, double) X(PesoBruto, double) \
    X(CodRetICMS, int16_t) X(UndPeso, Texto<2>) X(FatorConvGer, double) X(UndGer, Texto<2>)
ZT_REGISTRO(A_MTBMATEQ_t, ZT_COLUNAS_TBMATEQ)

// TBMATAG (18 columns).
#define ZT_COLUNAS_TBMATAG(X) \
    X(Empresa, int16_t) X(Codigo, Texto<20>) X(Nome, Texto<100>) X(Item, int32_t) X(CodItem, Texto<20>) \
    X(DscItem, Texto<100>) X(CodEquiv, Texto<20>) X(Qtd, double) X(UndItem, Texto<2>) X(QtdUnd, double) \
    X(Valor, double) X(Campo1, double) X(Campo2, double) X(STTR, int16_t) X(CodForn, int32_t) \
    X(RazFornec, Texto<60>) X(Observacao, Texto<300>) X(Tipo, int16_t)
ZT_REGISTRO(A_MTBMATAG_t, ZT_COLUNAS_TBMATAG)

// Key records: one field per statement parameter, named after its column.
#define ZT_CHAVE_MTBPAR(X) X(Empresa, int16_t)
ZT_CHAVE(ChaveMTBPAR_t, ZT_CHAVE_MTBPAR)
#define ZT_CHAVE_MTBPNF(X) X(EMPRESA, int16_t) X(CODIGO, int16_t)
ZT_CHAVE(ChaveMTBPNF_t, ZT_CHAVE_MTBPNF)
#define ZT_CHAVE_MTBDOC(X) X(Empresa, int16_t) X(Seq, int32_t)
ZT_CHAVE(ChaveMTBDOC_t, ZT_CHAVE_MTBDOC)
#define ZT_CHAVE_MTBICM(X) X(EMPRESA, int16_t) X(CODIGO, int16_t)
ZT_CHAVE(ChaveMTBICM_t, ZT_CHAVE_MTBICM)
#define ZT_CHAVE_MTBVEN(X) X(EMPRESA, int16_t) X(CODVEND, int32_t)
ZT_CHAVE(ChaveMTBVEN_t, ZT_CHAVE_MTBVEN)
#define ZT_CHAVE_MTBREP(X) X(EMPRESA, int16_t) X(CODREPCOM, int32_t)
ZT_CHAVE(ChaveMTBREP_t, ZT_CHAVE_MTBREP)
#define ZT_CHAVE_MTBDOCIT(X) X(Empresa, int16_t) X(Seq, int32_t)
ZT_CHAVE(ChaveMTBDOCIT_t, ZT_CHAVE_MTBDOCIT)
#define ZT_CHAVE_MTBMAT(X) X(Empresa, int16_t) X(CodItem, Texto<20>)
ZT_CHAVE(ChaveMTBMAT_t, ZT_CHAVE_MTBMAT)
#define ZT_CHAVE_MTBPEV(X) X(Empresa, int16_t) X(NumPed, int32_t)
ZT_CHAVE(ChaveMTBPEV_t, ZT_CHAVE_MTBPEV)
#define ZT_CHAVE_MTBPEVIT(X) X(Empresa, int16_t) X(NumPed, int32_t) X(Item, int32_t)
ZT_CHAVE(ChaveMTBPEVIT_t, ZT_CHAVE_MTBPEVIT)
#define ZT_CHAVE_MTBICMUF(X) X(EMPRESA, int16_t) X(CODIGO, int16_t) X(UF, Texto<2>)
ZT_CHAVE(ChaveMTBICMUF_t, ZT_CHAVE_MTBICMUF)
#define ZT_CHAVE_MTBPEC(X) X(Empresa, int16_t) X(NumPed, int32_t)
ZT_CHAVE(ChaveMTBPEC_t, ZT_CHAVE_MTBPEC)
#define ZT_CHAVE_MTBPECIT(X) X(Empresa, int16_t) X(NumPed, int32_t) X(CodFor, int32_t) X(Item, int32_t)
ZT_CHAVE(ChaveMTBPECIT_t, ZT_CHAVE_MTBPECIT)
#define ZT_CHAVE_MTBCUS(X) X(Empresa, int16_t) X(CodMat, Texto<20>) X(CodFor, int32_t)
ZT_CHAVE(ChaveMTBCUS_t, ZT_CHAVE_MTBCUS)
#define ZT_CHAVE_MTBFOR(X) X(EMPRESA, int16_t) X(CODFORN, int32_t)
ZT_CHAVE(ChaveMTBFOR_t, ZT_CHAVE_MTBFOR)
#define ZT_CHAVE_MTBMATEQ(X) X(Empresa, int16_t) X(Tipo, int16_t) X(CodEquiv, Texto<20>) X(CodItem, Texto<20>)
ZT_CHAVE(ChaveMTBMATEQ_t, ZT_CHAVE_MTBMATEQ)
#define ZT_CHAVE_MTBMATAG(X) X(Empresa, int16_t) X(Codigo, Texto<20>) X(Item, int32_t) X(Tipo, int16_t) X(StTr, int16_t)
ZT_CHAVE(ChaveMTBMATAG_t, ZT_CHAVE_MTBMATAG)
#define ZT_CHAVE_EquivMTBMAT(X) X(EMPRESA, int16_t) X(CODEQUIV, Texto<20>) X(TIPO, int16_t)
ZT_CHAVE(ChaveEquivMTBMAT_t, ZT_CHAVE_EquivMTBMAT)

} // namespace ztolvan
// clang-format on
