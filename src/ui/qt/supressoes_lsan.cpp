// What the system libraries under Qt (fontconfig, D-Bus) keep for the
// process's life is theirs: the leak sanitizer is told to leave it. Without
// the sanitizer nothing calls this.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n"
           "leak:libdbus-1.so\n";
}
