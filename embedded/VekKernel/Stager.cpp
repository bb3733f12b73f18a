// The host application as the export sees it: managers, viewports, cameras and views.

#include <VekKernel/CVekStager.h>

CVekCamera::CVekCamera() = default;

CVekCamera::~CVekCamera() = default;

CVekNavigator::CVekNavigator() = default;

CVekNavigator::~CVekNavigator() = default;

void CVekNavigator::SetCamera(std::unique_ptr<CVekCamera> camera) { m_camera = std::move(camera); }

CVekRenderer::CVekRenderer() = default;

CVekRenderer::~CVekRenderer() = default;

CVekViewport::CVekViewport()
    : m_navigator(std::make_unique<CVekNavigator>()), m_renderer(std::make_unique<CVekRenderer>()) {}

CVekViewport::~CVekViewport() = default;

CVekView::CVekView() = default;

CVekView::~CVekView() = default;

void CVekView::SetNavigatorProperties(std::unique_ptr<CVekPropertySet> properties) {
  m_navigatorProperties = std::move(properties);
}

CVekViewportManager::CVekViewportManager() : m_views(std::make_unique<CVekFList<CVekView>>()) {}

CVekViewportManager::~CVekViewportManager() { RemoveViewList(); }

void CVekViewportManager::SetViewportSelected(std::unique_ptr<CVekViewport> viewport) {
  m_selected = std::move(viewport);
}

void CVekViewportManager::AddView(std::unique_ptr<CVekView> view) {
  if (m_views == nullptr) m_views = std::make_unique<CVekFList<CVekView>>();
  m_views->Append(view.get());
  static_cast<void>(view.release());
}

void CVekViewportManager::RemoveViewList() {
  if (m_views == nullptr) return;
  for (const CVekView* view : *m_views) delete view;
  m_views.reset();
}

CVekSceneManager::CVekSceneManager() = default;

CVekSceneManager::~CVekSceneManager() = default;

void CVekSceneManager::SetAssyRoot(std::unique_ptr<CVekAssyRoot> root) { m_assyRoot = std::move(root); }

CVekStager::CVekStager()
    : m_sceneManager(std::make_unique<CVekSceneManager>()),
      m_viewportManager(std::make_unique<CVekViewportManager>()) {}

CVekStager::~CVekStager() = default;
