#include "desktop/scene_painter.h"

#include "desktop/scene_shaders.h"
#include "view3d/mesh.h"

#include <QImageReader>
#include <QOffscreenSurface>
#include <QOpenGLBuffer>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions_3_3_Core>
#include <QOpenGLShaderProgram>
#include <QOpenGLTexture>
#include <QOpenGLVersionFunctionsFactory>
#include <QOpenGLVertexArrayObject>
#include <algorithm>
#include <array>
#include <cmath>

namespace {
constexpr int Samples = 4, MostTextureSide = 2048, TextureCount = 3, MaterialCount = 4;

struct GpuVertex {
  float Place[3], Normal[3], Surface;
};

bool Build(QOpenGLShaderProgram &program, const char *vertex, const char *fragment) {
  return program.addShaderFromSourceCode(QOpenGLShader::Vertex, vertex) &&
         program.addShaderFromSourceCode(QOpenGLShader::Fragment, fragment) && program.link();
}

QMatrix4x4 MatrixOf(const std::array<float, 16> &columns) {
  QMatrix4x4 m;
  std::copy(columns.begin(), columns.end(), m.data());
  return m;
}

QVector3D Rgb(std::uint32_t colour) {
  const auto part = [colour](int shift) { return static_cast<float>(colour >> shift & 255) / 255.0F; };
  return {part(0), part(8), part(16)};
}

// Those with bitmaps first, in the order of PictureScene::Texture.
std::size_t MaterialOf(Surface s) {
  switch (s) {
  case Surface::Wall:
  case Surface::CutFace: return 0;
  case Surface::Port:
  case Surface::ExposedEndA:
  case Surface::ExposedEndB: return 1;
  case Surface::LinerInner:
  case Surface::LinerOuter:
  case Surface::LinerEnd: return 2;
  default: return 3;
  }
}

QVector3D Rgb(const QColor &c) {
  return {static_cast<float>(c.redF()), static_cast<float>(c.greenF()), static_cast<float>(c.blueF())};
}
} // namespace

struct ScenePainter::Parts {
  QOffscreenSurface Target;
  QOpenGLContext Context;
  QOpenGLFunctions_3_3_Core *Gl = nullptr;
  QOpenGLShaderProgram Plain, Grainy, Textured, Line, Ground, Shadow;
  QOpenGLVertexArrayObject SolidArray, LineArray, NoArray;
  QOpenGLBuffer Vertices{QOpenGLBuffer::VertexBuffer}, Corners{QOpenGLBuffer::IndexBuffer},
      Edges{QOpenGLBuffer::VertexBuffer};
  std::array<int, MaterialCount> CornerCount{}; // one material after another
  int EdgeCount = 0;
  unsigned Number = 0;
  bool Filled = false;
  std::unique_ptr<QOpenGLFramebufferObject> Many, Few, One; // samples to a pixel; One has no depth
  std::unique_ptr<QOpenGLTexture> Bitmap[TextureCount];
  std::string BitmapPath[TextureCount];

  QString Start();
  QOpenGLFramebufferObject &Prepare(QSize pixels, bool smooth);
  void Upload(const PictureScene &);
  void TakeBitmaps(const PictureScene &);
  void SetScene(QOpenGLShaderProgram &, const PictureScene &, const QMatrix4x4 &view,
                const QMatrix4x4 &projection);
  void DrawSolids(const PictureScene &, const QMatrix4x4 &view, const QMatrix4x4 &projection);
  bool Empty() const {
    return std::all_of(CornerCount.begin(), CornerCount.end(), [](int n) { return n == 0; });
  }
};

QString ScenePainter::Parts::Start() {
  const QString needs = "The 3D view needs OpenGL 3.3, which this display does not offer";
  QSurfaceFormat format;
  format.setVersion(3, 3);
  format.setProfile(QSurfaceFormat::CoreProfile);
  format.setRenderableType(QSurfaceFormat::OpenGL);
  Context.setFormat(format);
  if (!Context.create()) return needs + ".";
  Target.setFormat(Context.format());
  Target.create();
  if (!Target.isValid() || !Context.makeCurrent(&Target)) return needs + ": it gives no surface.";
  Gl = QOpenGLVersionFunctionsFactory::get<QOpenGLFunctions_3_3_Core>(&Context);
  if (!Gl || !Gl->initializeOpenGLFunctions())
    return needs +
           QString(", only %1.%2.").arg(Context.format().majorVersion()).arg(Context.format().minorVersion());
  const auto solid = [](const char *kind) {
    return std::string("#version 330 core\n") + kind + shaders::SolidFragment;
  };
  const bool built = Build(Plain, shaders::SolidVertex, solid("").c_str()) &&
                     Build(Grainy, shaders::SolidVertex, solid("#define GRAINY\n").c_str()) &&
                     Build(Textured, shaders::SolidVertex, solid("#define TEXTURED\n").c_str()) &&
                     Build(Line, shaders::LineVertex, shaders::LineFragment) &&
                     Build(Ground, shaders::GroundVertex, shaders::GroundFragment) &&
                     Build(Shadow, shaders::ShadowVertex, shaders::ShadowFragment);
  if (!built) return "The 3D view cannot be set up: the display's OpenGL refuses its programs.";
  for (QOpenGLVertexArrayObject *array : {&SolidArray, &LineArray, &NoArray}) array->create();
  for (QOpenGLBuffer *buffer : {&Vertices, &Corners, &Edges}) buffer->create();
  SolidArray.bind();
  Vertices.bind();
  Corners.bind();
  constexpr int stride = sizeof(GpuVertex);
  for (int i = 0; i < 3; ++i) {
    Gl->glEnableVertexAttribArray(static_cast<GLuint>(i));
    Gl->glVertexAttribPointer(
        static_cast<GLuint>(i), i == 2 ? 1 : 3, GL_FLOAT, GL_FALSE, stride,
        reinterpret_cast<const void *>(static_cast<std::uintptr_t>(i) * 3 * sizeof(float)));
  }
  SolidArray.release();
  LineArray.bind();
  Edges.bind();
  Gl->glEnableVertexAttribArray(0);
  Gl->glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 3 * sizeof(float), nullptr);
  LineArray.release();
  return {};
}

QOpenGLFramebufferObject &ScenePainter::Parts::Prepare(QSize pixels, bool smooth) {
  auto &used = smooth ? Many : Few;
  if (used && used->size() == pixels) return *used;
  QOpenGLFramebufferObjectFormat format;
  format.setInternalTextureFormat(GL_RGBA8);
  if (!One || One->size() != pixels) One = std::make_unique<QOpenGLFramebufferObject>(pixels, format);
  format.setAttachment(QOpenGLFramebufferObject::CombinedDepthStencil);
  format.setSamples(smooth ? Samples : 0);
  used = std::make_unique<QOpenGLFramebufferObject>(pixels, format);
  return *used;
}

void ScenePainter::Parts::Upload(const PictureScene &scene) {
  if (Filled && Number == scene.Number) return;
  Filled = true;
  Number = scene.Number;
  std::vector<GpuVertex> vertex;
  std::array<std::vector<std::uint32_t>, MaterialCount> corner;
  std::vector<float> edge;
  for (const SceneSolid &solid : scene.Solid) {
    const Mesh &mesh = *solid.Solid;
    const auto base = static_cast<std::uint32_t>(vertex.size());
    for (const MeshVertex &v : mesh.Vertex)
      vertex.push_back({{v.X, v.Y, v.Z}, {v.NormalX, v.NormalY, v.NormalZ}, 0});
    for (std::size_t i = 0; i < mesh.Triangle.size(); ++i) {
      const Surface tag = solid.Liner && mesh.Tag[i] == Surface::CutFace ? Surface::LinerEnd : mesh.Tag[i];
      const MeshTriangle &t = mesh.Triangle[i];
      for (const std::uint32_t at : {base + t.A, base + t.B, base + t.C}) {
        vertex[at].Surface = static_cast<float>(tag); // no vertex is shared by two surfaces
        corner[MaterialOf(tag)].push_back(at);
      }
    }
    edge.insert(edge.end(), solid.Edge->begin(), solid.Edge->end());
  }
  SolidArray.bind();
  Vertices.bind();
  Vertices.allocate(vertex.data(), static_cast<int>(vertex.size() * sizeof(GpuVertex)));
  Corners.bind();
  std::vector<std::uint32_t> all;
  for (std::size_t i = 0; i < MaterialCount; ++i) {
    CornerCount[i] = static_cast<int>(corner[i].size());
    all.insert(all.end(), corner[i].begin(), corner[i].end());
  }
  Corners.allocate(all.data(), static_cast<int>(all.size() * sizeof(std::uint32_t)));
  SolidArray.release();
  Edges.bind();
  Edges.allocate(edge.data(), static_cast<int>(edge.size() * sizeof(float)));
  EdgeCount = static_cast<int>(edge.size() / 3);
}

void ScenePainter::Parts::TakeBitmaps(const PictureScene &scene) {
  for (std::size_t i = 0; i < TextureCount; ++i) {
    if (BitmapPath[i] == scene.Texture[i]) continue;
    BitmapPath[i] = scene.Texture[i];
    Bitmap[i].reset();
    if (BitmapPath[i].empty()) continue;
    QImageReader reader(QString::fromStdString(BitmapPath[i]));
    reader.setDecideFormatFromContent(true);
    QImage image = reader.read();
    if (image.isNull()) continue;
    if (std::max(image.width(), image.height()) > MostTextureSide)
      image = image.scaled(MostTextureSide, MostTextureSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    Bitmap[i] = std::make_unique<QOpenGLTexture>(image);
    Bitmap[i]->setWrapMode(QOpenGLTexture::Repeat);
    Bitmap[i]->setMinMagFilters(QOpenGLTexture::LinearMipMapNearest, QOpenGLTexture::Linear);
  }
}

void ScenePainter::Parts::SetScene(QOpenGLShaderProgram &program, const PictureScene &scene,
                                   const QMatrix4x4 &view, const QMatrix4x4 &projection) {
  program.bind();
  program.setUniformValue("View", view);
  program.setUniformValue("Projection", projection);
  program.setUniformValue("Eye", view.inverted().column(3).toVector3D());
  program.setUniformValue("Perspective", projection(3, 2) != 0);
  QVector3D colour[11];
  for (std::size_t i = 0; i < scene.Colour.size(); ++i) colour[i] = Rgb(scene.Colour[i]);
  program.setUniformValueArray("Colour", colour, 11);
  program.setUniformValue("Plane", QVector4D(scene.Plane[0], scene.Plane[1], scene.Plane[2], scene.Plane[3]));
  program.setUniformValue("Radius", scene.Radius);
  program.setUniformValue("PortRadius", scene.PortRadius);
  program.setUniformValue("LowZ", scene.LowZ);
  program.setUniformValue("HighZ", scene.HighZ);
  program.setUniformValue("TextureSize", scene.TextureSize);
  program.setUniformValue("Bitmap", 0);
}

void ScenePainter::Parts::DrawSolids(const PictureScene &scene, const QMatrix4x4 &view,
                                     const QMatrix4x4 &projection) {
  Gl->glEnable(GL_POLYGON_OFFSET_FILL);
  Gl->glPolygonOffset(1.2F, 1.5F); // so that the edges' lines stand clear
  SolidArray.bind();
  std::size_t from = 0;
  for (std::size_t i = 0; i < MaterialCount; ++i) {
    const bool bitmap = i < TextureCount && Bitmap[i];
    SetScene(bitmap ? Textured : i == 0 ? Grainy : Plain, scene, view, projection);
    if (bitmap) Bitmap[i]->bind(0);
    Gl->glDrawElements(GL_TRIANGLES, CornerCount[i], GL_UNSIGNED_INT,
                       reinterpret_cast<const void *>(from * sizeof(std::uint32_t)));
    from += static_cast<std::size_t>(CornerCount[i]);
  }
  SolidArray.release();
  Gl->glDisable(GL_POLYGON_OFFSET_FILL);
}

ScenePainter::ScenePainter() : Own(std::make_unique<Parts>()) { Trouble = Own->Start(); }

ScenePainter::~ScenePainter() {
  if (!Own->Gl || !Own->Context.makeCurrent(&Own->Target)) return;
  for (auto &bitmap : Own->Bitmap) bitmap.reset();
  Own->Many.reset();
  Own->Few.reset();
  Own->One.reset();
  for (QOpenGLVertexArrayObject *array : {&Own->SolidArray, &Own->LineArray, &Own->NoArray}) array->destroy();
  for (QOpenGLBuffer *buffer : {&Own->Vertices, &Own->Corners, &Own->Edges}) buffer->destroy();
  for (QOpenGLShaderProgram *program :
       {&Own->Plain, &Own->Grainy, &Own->Textured, &Own->Line, &Own->Ground, &Own->Shadow})
    program->removeAllShaders();
  Own->Context.doneCurrent();
}

QString ScenePainter::Renderer() const {
  if (!Trouble.isEmpty() || !Own->Context.makeCurrent(&Own->Target)) return {};
  return QString::fromLatin1(reinterpret_cast<const char *>(Own->Gl->glGetString(GL_RENDERER)));
}

// The projection is turned upside down, so that the rows come back from the first to the last.
QImage ScenePainter::Paint(const PictureScene &scene, QSize pixels, const Ground &ground, bool smooth) {
  Parts &p = *Own;
  if (!Trouble.isEmpty() || pixels.isEmpty() || !p.Context.makeCurrent(&p.Target)) return {};
  auto &gl = *p.Gl;
  QOpenGLFramebufferObject &drawn = p.Prepare(pixels, smooth);
  if (!drawn.isValid() || !p.One->isValid()) return {};
  p.Upload(scene);
  p.TakeBitmaps(scene);
  const QMatrix4x4 view = MatrixOf(scene.View);
  QMatrix4x4 projection;
  projection.scale(1, -1);
  projection *= MatrixOf(scene.Projection);

  drawn.bind();
  gl.glViewport(0, 0, pixels.width(), pixels.height());
  gl.glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  gl.glDisable(GL_DEPTH_TEST);
  p.NoArray.bind();
  p.Ground.bind();
  p.Ground.setUniformValue("High", Rgb(ground.High));
  p.Ground.setUniformValue("Low", Rgb(ground.Low));
  gl.glDrawArrays(GL_TRIANGLES, 0, 3);
  gl.glEnable(GL_BLEND);
  gl.glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ZERO, GL_ONE);
  const double above = view(2, 1); // of the eye, as the sine of its lift
  if (!p.Empty() && above > 0) {
    p.Shadow.bind();
    p.Shadow.setUniformValue("View", view);
    p.Shadow.setUniformValue("Projection", projection);
    p.Shadow.setUniformValue("Radius", scene.Radius);
    p.Shadow.setUniformValue("Low", scene.LowZ);
    p.Shadow.setUniformValue("High", scene.HighZ);
    p.Shadow.setUniformValue("Floor", -1.01F * scene.Radius);
    p.Shadow.setUniformValue("Strength", static_cast<float>(ground.Shadow * std::min(1.0, above * 5)));
    gl.glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
  }
  p.NoArray.release();
  gl.glEnable(GL_DEPTH_TEST);
  gl.glDepthFunc(GL_LEQUAL);
  if (!p.Empty()) {
    gl.glDisable(GL_BLEND);
    gl.glEnable(GL_CULL_FACE);
    gl.glFrontFace(GL_CW);
    p.DrawSolids(scene, view, projection);
    gl.glDisable(GL_CULL_FACE);
    gl.glEnable(GL_BLEND);
    p.Line.bind();
    p.Line.setUniformValue("View", view);
    p.Line.setUniformValue("Projection", projection);
    p.Line.setUniformValue("Ink", ground.Ink);
    p.LineArray.bind();
    gl.glDrawArrays(GL_LINES, 0, p.EdgeCount);
    p.LineArray.release();
  }
  gl.glDisable(GL_BLEND);
  if (smooth) QOpenGLFramebufferObject::blitFramebuffer(p.One.get(), &drawn);
  (smooth ? *p.One : drawn).bind();
  QImage image(pixels, QImage::Format_RGB32);
  gl.glReadPixels(0, 0, pixels.width(), pixels.height(), GL_BGRA, GL_UNSIGNED_INT_8_8_8_8_REV, image.bits());
  drawn.release();
  p.Context.doneCurrent();
  return image;
}
