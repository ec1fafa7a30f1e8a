#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace ztolvan {

// The variant value carried by Comunica.Dados, Comunica.Retorno and
// ZDadosVendas: empty, integer, double, text, boolean or a 0-based array.
class Valor {
  public:
    using Lista = std::vector<Valor>;
    enum class Tipo { Vazio, Inteiro, Duplo, Texto, Logico, Lista };

    Valor() = default;
    Valor(int v) : v_(static_cast<int64_t>(v)) {}
    Valor(int64_t v) : v_(v) {}
    Valor(long long v) : v_(static_cast<int64_t>(v)) {}
    Valor(int16_t v) : v_(static_cast<int64_t>(v)) {}
    Valor(double v) : v_(v) {}
    Valor(bool v) : v_(v) {}
    Valor(std::string v) : v_(std::move(v)) {}
    Valor(const char* v) : v_(std::string(v)) {}
    Valor(std::string_view v) : v_(std::string(v)) {}
    Valor(Lista v) : v_(std::move(v)) {}

    Tipo tipo() const { return static_cast<Tipo>(v_.index()); }
    bool vazio() const { return tipo() == Tipo::Vazio; }
    bool eLista() const { return tipo() == Tipo::Lista; }
    bool eTexto() const { return tipo() == Tipo::Texto; }
    bool eNumero() const {
        return tipo() == Tipo::Inteiro || tipo() == Tipo::Duplo || tipo() == Tipo::Logico;
    }

    int64_t inteiro() const { return std::get<int64_t>(v_); }
    double duplo() const { return std::get<double>(v_); }
    const std::string& texto() const { return std::get<std::string>(v_); }
    std::string& texto() { return std::get<std::string>(v_); }
    bool logico() const { return std::get<bool>(v_); }
    const Lista& lista() const { return std::get<Lista>(v_); }
    Lista& lista() { return std::get<Lista>(v_); }

    // Element i of an array; ErroExecucao 9 when this is not an array or i is out of range.
    const Valor& operator[](size_t i) const;
    size_t tamanho() const { return eLista() ? lista().size() : 0; }

    bool operator==(const Valor&) const = default;

  private:
    std::variant<std::monostate, int64_t, double, std::string, bool, Lista> v_;
};

} // namespace ztolvan
