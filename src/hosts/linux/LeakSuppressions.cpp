// Compiled in with the address sanitizer alone: what libraries leave behind at the end is not the program's leak. A
// call over the message bus that is still under way when the program quits keeps its reply. A thread of Qt's network
// that is still ending then has not given back what OpenSSL keeps for each thread.
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier): the sanitizer's own name
{
    return "leak:libQt6DBus.so\nleak:libcrypto.so";
}
