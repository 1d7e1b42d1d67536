// Pango lets fontconfig read its files on a thread of its own, in code that the thread sanitizer has not seen: reports
// from inside those libraries are not ours.
#if defined(__SANITIZE_THREAD__)
extern "C" char const* __tsan_default_suppressions();
extern "C" char const* __tsan_default_suppressions()
{
    return "race:libfontconfig.so\n"
           "race:libglib-2.0.so\n"
           "race:libpango*-1.0.so\n"
           "mutex:libpango*-1.0.so\n";
}
#endif
