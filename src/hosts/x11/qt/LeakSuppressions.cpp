// Compiled in with the address sanitizer alone: what Qt leaves behind at the end is not the program's leak. A call over
// the message bus that is still under way when the program quits keeps its reply.
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier): the sanitizer's own name
{
    return "leak:libQt6DBus.so";
}
