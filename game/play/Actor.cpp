#include "play/Actor.h"

#include "play/WorldGeometry.h"
#include "scene/Drawable.h"

Actor::~Actor() = default;

void Actor::update()
{
    position = wrapIntoWorld(position);
    if (drawable == nullptr) return;
    drawable->position = vorlik::vec3(position.x, position.y, 0.0f);
    drawable->setScale(scale);
    drawable->setRotation(rotation);
}
