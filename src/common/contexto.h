#pragma once
#include <cstddef>
#include <memory>
#include <vector>

namespace ztolvan {

// Everything the component keeps per thread (the session, Comunica, the
// connector, module records and cursor tables, exchange variables, screens)
// lives in one Contexto per thread. Each layer keeps its own part, a default
// constructible type created on first use and destroyed with the context:
//     auto& dados = Contexto::Atual().Parte<EstadoDados>();
class Contexto {
  public:
    Contexto() = default;
    Contexto(const Contexto&) = delete;
    Contexto& operator=(const Contexto&) = delete;
    ~Contexto();

    // The calling thread's context, created on first use.
    static Contexto& Atual();
    // Drops the calling thread's context and starts an empty one (tests, and
    // a host thread that ends its use of the component).
    static void Renova();

    template <class T> T& Parte() {
        const size_t id = IdDe<T>();
        if (id >= partes_.size()) partes_.resize(id + 1);
        auto& p = partes_[id];
        if (!p) {
            p = std::make_unique<Modelo<T>>();
            ordem_.push_back(id);
        }
        return static_cast<Modelo<T>*>(p.get())->valor;
    }

    template <class T> bool Tem() const {
        const size_t id = IdDe<T>();
        return id < partes_.size() && partes_[id] != nullptr;
    }

  private:
    struct Base {
        virtual ~Base() = default;
    };
    template <class T> struct Modelo : Base { T valor{}; };

    static size_t NovoId();
    template <class T> static size_t IdDe() {
        static const size_t id = NovoId();
        return id;
    }

    // Parts are destroyed in reverse order of creation, so a part created
    // later (a screen) goes before what it may use (the connection).
    std::vector<std::unique_ptr<Base>> partes_;
    std::vector<size_t> ordem_;
};

} // namespace ztolvan
