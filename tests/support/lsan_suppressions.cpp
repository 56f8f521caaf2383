// Fontconfig keeps what it parsed and matched for the life of the process, in structures that LeakSanitizer
// cannot trace back to a root; those are not leaks of ours. The hook is LeakSanitizer's own, looked up by
// name at exit, so it must stay visible.
extern "C" __attribute__((visibility("default"))) char const* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}
