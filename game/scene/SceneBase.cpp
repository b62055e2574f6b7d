#include "scene/SceneBase.h"

#include "math/mat2.h"
#include "math/scalar.h"
#include "platform/Vorlik.h"
#include "scene/SceneSink.h"

namespace {

constexpr float kDepthRange = 10.0f;        // the 2D projection's near and far: -10 to 10
constexpr float kPerspectiveNear = 1.0f;
constexpr float kPerspectiveFar = 10.0f;
constexpr float kPerspectiveDistance = 2.0f; // where one unit is one pixel

int32_t orWindow(int32_t size, uint32_t window) { return size == -1 ? static_cast<int32_t>(window) : size; }

} // namespace

SceneBase::SceneBase(int32_t width, int32_t height)
    : view(&camera),
      width(orWindow(width, vorlik::Vorlik::width)),
      height(orWindow(height, vorlik::Vorlik::height))
{
    camera.x = this->width / 2.0f;
    camera.y = this->height / 2.0f;
    worldWidth = static_cast<float>(this->width);
    worldHeight = static_cast<float>(this->height);
}

SceneBase::~SceneBase() = default;

void SceneBase::drawFrame(SceneSink& sink)
{
    sink.beginFrame();
    Frame frame;
    prepareFrame(frame);
    if (debugBounds) sink.drawWorldOutline(frame.state, worldWidth, worldHeight);
    TraversalSwitches switches;
    switches.cullTransparent = cullTransparent;
    switches.debugBounds = debugBounds;
    traverseScene(first, frame.state, switches, scratch, sink);
    sink.endFrame();
}

void SceneBase::prepareFrame(Frame& frame)
{
    vorlik::Stack<ViewRect>& views = scratch.views;
    WorldView& v = *view;
    if (!(v.zoom > kMinZoom)) v.zoom = kMinZoom;
    const float w = static_cast<float>(width);
    const float h = static_cast<float>(height);
    const vorlik::vec2 viewSize(w / v.zoom, h / v.zoom);

    frame.camera = vorlik::vec2(v.x, v.y);
    if (wrapWorld) {
        frame.camera.x = vorlik::wrap(v.x, 0.0f, worldWidth);
        frame.camera.y = vorlik::wrap(v.y, 0.0f, worldHeight);
    }
    buildViewRects(views, frame.camera, viewSize, vorlik::vec2(worldWidth, worldHeight), wrapWorld);

    // Top is given before bottom: y = -h/2 is the top of the screen, so y grows downwards.
    frame.projection = vorlik::mat4::ortho(-w / 2, w / 2, -h / 2, h / 2, -kDepthRange, kDepthRange);
    frame.perspective = vorlik::mat4::frustum(-w / 4, w / 4, -h / 4, h / 4, kPerspectiveNear, kPerspectiveFar);

    vorlik::mat2 cameraTransform;
    cameraTransform.scale(v.zoom);
    cameraTransform.rotate(-vorlik::degreesToRadians(v.rotation));
    cameraTransform.translate(-frame.camera);
    vorlik::mat4 modelView = cameraTransform.toMat4();
    // GL looks down -z, so the plane of the scene is moved to z = -2, two units in front of the
    // eye where the frustum shows one unit per pixel; at z = +2 it would lie behind the eye and
    // no perspective node would be seen.
    modelView.translate(0.0f, 0.0f, -kPerspectiveDistance);

    SceneState& state = frame.state;
    state.views = &views;
    state.color = ByteColor();
    state.projection = &frame.projection;
    state.perspective = &frame.perspective;
    state.transform = cameraTransform;
    state.cameraModelView = modelView;
    state.cameraDelta = vorlik::vec2(v.x - lastCamera.x, v.y - lastCamera.y);
    lastCamera = v;
}

vorlik::vec2 SceneBase::windowToWorld(float windowX, float windowY) const
{
    const WorldView& v = *view;
    const float zoom = v.zoom > kMinZoom ? v.zoom : kMinZoom;
    const vorlik::vec2 fromCentre((windowX - width / 2.0f) / zoom, (windowY - height / 2.0f) / zoom);
    vorlik::mat2 turn;
    turn.rotate(vorlik::degreesToRadians(v.rotation));
    return vorlik::vec2(v.x, v.y) + turn * fromCentre;
}
