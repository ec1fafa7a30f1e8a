// Every test program starts as a store's desktop program does: the C library
// takes the locale of the environment (pt_BR.UTF-8 under scripts/test), so a
// number that goes through it instead of the component's own conversions
// fails here as it would at the counter.
#include <clocale>
#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (!std::setlocale(LC_ALL, ""))
        std::fprintf(stderr, "aviso: o locale do ambiente não está instalado; os testes correm no locale C\n");
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
