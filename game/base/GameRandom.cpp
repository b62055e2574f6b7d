#include "base/GameRandom.h"

vorlik::Random g_rand(kStaticRandomSeed);
