// Fontconfig links its patterns by offsets instead of addresses, so that the leak checker now and then takes what is
// still in use when the program ends for lost.

extern "C" char const* __lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier): the checker's name
{
    return "leak:libfontconfig";
}
