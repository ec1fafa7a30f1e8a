#pragma once
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "common/valor.h"

namespace ztolvan {

// Message-box codes of the system.
namespace msg {
inline constexpr int32_t OK = 0;
inline constexpr int32_t OKCancelar = 1;
inline constexpr int32_t SimNao = 4;
inline constexpr int32_t Critico = 16;
inline constexpr int32_t Pergunta = 32;
inline constexpr int32_t Exclamacao = 48;
inline constexpr int32_t Informacao = 64;
// Answers.
inline constexpr int RespostaOK = 1;
inline constexpr int RespostaCancelar = 2;
inline constexpr int RespostaSim = 6;
inline constexpr int RespostaNao = 7;
} // namespace msg

// The suite's message component: shows a message and returns the button pressed.
class PortaMensagens {
  public:
    virtual ~PortaMensagens() = default;
    virtual Valor fnMsgbox(const std::string& Texto, int32_t Tipo, const std::string& Titulo,
                           const std::string& Texto1, const std::string& Texto2, const std::string& Texto3,
                           int32_t Valor1, const std::string& Texto4) = 0;
};

struct MensagemMostrada {
    std::string Texto;
    int32_t Tipo = 0;
    std::string Titulo;
    // The box's second text (an error's line and cause, a list of items).
    std::string Detalhe;
};

// Keeps what was shown and answers from a script, then with the first button
// of the box (OK or Yes) once the script runs out.
class MensagensGravadas : public PortaMensagens {
  public:
    Valor fnMsgbox(const std::string& Texto, int32_t Tipo, const std::string& Titulo, const std::string& Texto1,
                   const std::string&, const std::string&, int32_t, const std::string&) override;

    void Responde(int resposta) { respostas_.push_back(resposta); }
    const std::vector<MensagemMostrada>& Mostradas() const { return mostradas_; }
    void Limpa() { mostradas_.clear(); }
    // Also echo every message to stderr (the command line's policy).
    bool ecoStderr = false;

  private:
    std::vector<MensagemMostrada> mostradas_;
    std::deque<int> respostas_;
};

// The first button of a box of type 'tipo': OK for OK boxes, Yes for Yes/No.
int PrimeiroBotao(int32_t tipo);

} // namespace ztolvan

namespace ztolvan {

// Shows a message through the thread's message component and returns the
// button pressed; any failure inside gives an empty result.
Valor MostraMensagem(const std::string& Texto, int32_t Tipo = msg::OK, const std::string& Titulo = "",
                     const std::string& Texto1 = "", const std::string& Texto2 = "",
                     const std::string& Texto3 = "", int32_t Valor1 = 0, const std::string& Texto4 = "");

} // namespace ztolvan
