// Palette: the materials and light colours shared by the game's art, so the enemies, the
// player, the pickups and the HUD stay one coherent look: gunmetal and crimson hulls with
// hot orange engines for the enemies, violet-blue for the player, green for pickups.
#pragma once

#include "art/Hull.h"

namespace assetgen::palette {

inline Material steel() { return {{0.50f, 0.52f, 0.57f}, 0.55f, 0, {}}; }
inline Material darkSteel() { return {{0.24f, 0.25f, 0.29f}, 0.35f, 0, {}}; }
inline Material crimson() { return {{0.62f, 0.11f, 0.10f}, 0.6f, 0, {}}; }
inline Material rust() { return {{0.78f, 0.36f, 0.10f}, 0.5f, 0, {}}; }
inline Material enemyGlass() { return {{0.55f, 0.12f, 0.08f}, 1.0f, 1.0f, {0.10f, 0.02f, 0.0f}}; }
inline Material nozzle() { return {{0.10f, 0.10f, 0.11f}, 0.2f, 0, {0.95f, 0.45f, 0.12f}}; }
inline Material enemyEye() { return {{0.8f, 0.1f, 0.05f}, 1.0f, 0.6f, {0.9f, 0.12f, 0.04f}}; }

inline Material violetHull() { return {{0.46f, 0.42f, 0.70f}, 0.6f, 0, {}}; }
inline Material paleHull() { return {{0.72f, 0.72f, 0.80f}, 0.6f, 0, {}}; }
inline Material indigo() { return {{0.20f, 0.18f, 0.42f}, 0.45f, 0, {}}; }
inline Material playerGlass() { return {{0.25f, 0.35f, 0.9f}, 1.0f, 1.0f, {0.05f, 0.08f, 0.25f}}; }

const V3 kEnemyLight{1.0f, 0.18f, 0.06f};   // running lights
const V3 kEnemyRim{0.95f, 0.35f, 0.12f};
const V3 kPlayerLight{0.55f, 0.45f, 1.0f};
const V3 kPickup{0.25f, 1.0f, 0.35f};

} // namespace assetgen::palette
