// What the sanitizers are not to report stands in the files beside this one. Linked into every test program, so that it
// reads them when it is run by hand, too.

// NOLINTBEGIN(bugprone-reserved-identifier): the names that the sanitizers look for
extern "C" {
char const* __lsan_default_options();
char const* __lsan_default_options()
{
    return "suppressions=" OSTREL_SUPPRESSIONS "/leaks.txt:print_suppressions=0";
}

char const* __tsan_default_options();
char const* __tsan_default_options()
{
    return "suppressions=" OSTREL_SUPPRESSIONS "/threads.txt";
}
}
// NOLINTEND(bugprone-reserved-identifier)
