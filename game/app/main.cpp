// Kelvane's entry point. The game takes no arguments and reads its data from the working
// directory (gfx/, sfx/, shaders/).
#include "app/MainLoop.h"

#include <cstdio>

int main(int, char**)
{
    // Progress lines appear as they happen, also when the output goes to a file or a pipe.
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    MainLoop loop;
    loop.startUp();
    loop.run();
    return 0;
}
