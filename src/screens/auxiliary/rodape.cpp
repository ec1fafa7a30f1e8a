#include "screens/auxiliary/rodape.h"

#include <array>
#include <memory>

#include "common/armazem_maquina.h"
#include "common/conversao.h"
#include "common/datas.h"
#include "common/log.h"
#include "common/telas.h"
#include "common/texto.h"
#include "entry/sessao.h"
#include "screens/janelas.h"
#include "screens/relato.h"
#include "screens/tela.h"

namespace ztolvan {
namespace {

constexpr const char* SuportePadrao = "Suporte Veltra: (11) 3003-7070 / 0800 770 7070";

Fonte FontePainel() { return {"Arial", 8, true}; }

Forma& NovoSeparador(Tela& frm, int numero, int left, int topoFaixa) {
    auto s = std::make_unique<Forma>();
    s->Name = "shSeparador" + std::to_string(numero);
    s->Left = left;
    s->Top = topoFaixa + 50;
    s->Height = painel::Altura - 100;
    s->Width = 5;
    s->BorderWidth = 2;
    s->BorderColor = painel::Texto;
    s->TabStop = false;
    auto& r = static_cast<Forma&>(frm.Adiciona(std::move(s)));
    frm.ZOrder(r, 0);
    return r;
}

Rotulo& NovoRotulo(Tela& frm, int numero, const std::string& texto, int topoFaixa) {
    auto l = std::make_unique<Rotulo>();
    l->Name = "lblPainel" + std::to_string(numero);
    l->Font = FontePainel();
    l->Caption = texto;
    l->AutoSize = true;
    PortaJanelas& j = JanelasAtuais();
    l->Width = j.LarguraTexto(l->Font, texto);
    l->Height = j.AlturaTexto(l->Font);
    l->Top = topoFaixa + 30;
    l->ForeColor = painel::Texto;
    l->TabStop = false;
    auto& r = static_cast<Rotulo&>(frm.Adiciona(std::move(l)));
    frm.ZOrder(r, 0);
    return r;
}

} // namespace

void sbMontaRodape(Tela& frm, const std::string& t1, const std::string& t2, const std::string& t3,
                   const std::string& t4, const std::string& t5, const std::string& t6, const std::string& t7,
                   const std::string& t8) {
    Protegido(EstiloErro::Log, "sbMontaRodape", frm.Name, [&](int& linha) {
        linha = 10;
        // The screen and its outline grow with a strip wrapped onto more rows.
        Controle* contorno = frm.Acha("shContorno");
        const auto cresce = [&](int d) {
            frm.Height += d;
            if (contorno) contorno->Height += d;
        };
        if (const Controle* velha = frm.Acha("shInformacoes")) cresce(painel::Altura - velha->Height);
        frm.RemovePorPrefixo("shInformacoes");
        frm.RemovePorPrefixo("shSeparador");
        frm.RemovePorPrefixo("lblPainel");

        linha = 20;
        auto faixa = std::make_unique<Forma>();
        faixa->Name = "shInformacoes";
        faixa->Left = 0;
        faixa->Height = painel::Altura;
        faixa->Top = frm.Height - faixa->Height;
        faixa->Width = frm.Width;
        faixa->Preenchida = true;
        faixa->Transparente = false;
        faixa->BorderColor = faixa->FillColor = painel::Faixa;
        faixa->TabStop = false;
        Forma& f = static_cast<Forma&>(frm.Adiciona(std::move(faixa)));
        frm.ZOrder(f, 1);

        linha = 30;
        // t8 holds the right end of the first row.
        const bool temDireita = !Apara(t8).empty();
        const int larguraDireita = temDireita ? JanelasAtuais().LarguraTexto(FontePainel(), t8) : 0;

        // A text that would run past the strip's end (a narrow dialog) opens
        // a new row below, so the support line is never cut.
        const std::array<const std::string*, 7> textos = {&t1, &t2, &t3, &t4, &t5, &t6, &t7};
        int rotulos = 0, separadores = 0, fila = 0;
        const Rotulo* anterior = nullptr;
        for (size_t i = 0; i < textos.size(); ++i) {
            if (textos[i]->empty()) continue;
            Rotulo& l = NovoRotulo(frm, rotulos++, *textos[i], f.Top);
            l.Opaco = true;
            l.BackColor = f.FillColor;
            l.Left = 80;
            if (anterior) {
                const int depois = anterior->Left + anterior->Width + 80;
                const int fim = fila == 0 && temDireita ? f.Width - larguraDireita - 180 : f.Width - 80;
                if (depois + 125 + l.Width <= fim) {
                    l.Left = NovoSeparador(frm, ++separadores, depois, f.Top + fila * painel::Altura).Left + 125;
                } else {
                    ++fila;
                }
            }
            l.Top += fila * painel::Altura;
            if (i == 6) {
                l.ForeColor = painel::Aviso;
                Beep();
            }
            anterior = &l;
        }
        f.Height += fila * painel::Altura;
        cresce(fila * painel::Altura);

        linha = 40;
        if (temDireita) {
            Rotulo& l = NovoRotulo(frm, rotulos, t8, f.Top);
            l.Opaco = false;
            l.Left = f.Width - l.Width - 100;
            NovoSeparador(frm, separadores + 1, f.Width - l.Width - 180, f.Top);
        }

        linha = 50;
        DoEvents();
    });
}

std::string TextoDataHoje() {
    return "Data: " + fcRetornaDataNoFormatoDesejado(HojeAAAAMMDD(), "YYYYMMDD", "DD/MM/YYYY");
}

std::string LinhaSuporte() {
    int16_t achou = 0;
    const std::string v = CStr(LerRegistro(RaizMaquina, ChaveVeltra, "Suporte", Valor(), achou));
    return Apara(v).empty() ? SuportePadrao : v;
}

} // namespace ztolvan
