// Only compiled with the address sanitizer. Suppresses allocations that libraries still hold at exit: the reply of a
// pending D-Bus call, and OpenSSL's data of a Qt network thread that is still ending.
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier): the sanitizer's own name
{
    return "leak:libQt6DBus.so\nleak:libcrypto.so";
}
