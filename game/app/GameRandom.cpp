#include "app/GameRandom.h"

vorlik::Random g_rand(kStaticRandomSeed);
