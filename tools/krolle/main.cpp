// krolle: command-line front end over storyboard project files.
#include <cstdio>
#include <cstring>

namespace {

const char* const kUsage =
    "usage: krolle <command> [options]\n"
    "       krolle --help | --version\n"
    "\n"
    "A command-line front end over storyboard project files.\n";

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2 || std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0) {
        std::fputs(kUsage, argc < 2 ? stderr : stdout);
        return argc < 2 ? 64 : 0;
    }
    if (std::strcmp(argv[1], "--version") == 0) {
        std::printf("krolle %s\n", KROLLE_VERSION);
        return 0;
    }
    std::fprintf(stderr, "krolle: unknown command '%s' (see krolle --help)\n", argv[1]);
    return 64;
}
