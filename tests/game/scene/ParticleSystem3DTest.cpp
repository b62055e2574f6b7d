// The declared 3D family (models, objects and their particles): empty roots that can be made
// and deleted through a base pointer, and nothing more.
#include "scene/Model3D.h"
#include "scene/Object3D.h"
#include "scene/ParticleEmitter3D.h"
#include "scene/ParticleSlice3D.h"
#include "scene/ParticleSystem3D.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace {

template <class T> void expectEmptyPolymorphicRoot()
{
    EXPECT_TRUE(std::has_virtual_destructor<T>::value);
    EXPECT_TRUE(std::is_polymorphic<T>::value);
    EXPECT_EQ(sizeof(T), sizeof(void*)); // nothing but the table of virtual functions
    const std::unique_ptr<T> made(new T);
    EXPECT_NE(made, nullptr);
}

TEST(ParticleSystem3DTest, EveryDeclared3DClassIsAnEmptyRootWithAVirtualDestructor)
{
    expectEmptyPolymorphicRoot<Model3D>();
    expectEmptyPolymorphicRoot<Object3D>();
    expectEmptyPolymorphicRoot<ParticleEmitter3D>();
    expectEmptyPolymorphicRoot<ParticleSlice3D>();
    expectEmptyPolymorphicRoot<ParticleSystem3D>();
}

} // namespace
