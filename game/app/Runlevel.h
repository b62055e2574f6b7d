// The program's current mode, read and changed by the main loop once a pass.
// Nothing in the game sets the menu mode; its branch of the loop is served all the same.
#pragma once

enum RunlevelValue : int {
    RUNLEVEL_LEAVE = 0,      // the main loop ends
    RUNLEVEL_MENU = 1,       // the (never entered) main menu
    RUNLEVEL_GAME = 2,       // a game session runs
    RUNLEVEL_TITLE = 3,      // the title screen waits for a key
    RUNLEVEL_ENTERING = 4,   // fading from the title into the game
    RUNLEVEL_QUITTING = -1,  // fading out before the loop ends
};

extern int runlevel;
