// Kelvane's entry point. The game takes no arguments and reads its data from the working
// directory (gfx/, sfx/, shaders/).
#include "app/MainLoop.h"

int main(int, char**)
{
    MainLoop loop;
    loop.startUp();
    loop.run();
    return 0;
}
