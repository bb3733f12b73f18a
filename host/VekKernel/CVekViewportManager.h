#pragma once

// The application's viewports and saved views.

#include <VekFoundations/CVekFList.h>
#include <VekFoundations/VekExport.h>
#include <VekKernel/CVekView.h>
#include <VekKernel/CVekViewport.h>

#include <memory>

class VEK_API CVekViewportManager {
 public:
  // Without a viewport, with an empty list of views.
  CVekViewportManager();
  CVekViewportManager(const CVekViewportManager&) = delete;
  CVekViewportManager& operator=(const CVekViewportManager&) = delete;
  virtual ~CVekViewportManager();

  // The selected viewport, null when none is. It stays the manager's.
  [[nodiscard]] CVekViewport* GetViewportSelected() const { return m_selected.get(); }
  void SetViewportSelected(std::unique_ptr<CVekViewport> viewport);

  // The saved views in order, null when there is no list. An entry may be null. List and views stay the manager's.
  [[nodiscard]] const CVekFList<CVekView>* GetViews() const { return m_views.get(); }

  // Puts a view at the end of the list; null is an entry without a view. Makes the list when there is none.
  void AddView(std::unique_ptr<CVekView> view);

  // Destroys the views and their list: from now on there is no list.
  void RemoveViewList();

 private:
  std::unique_ptr<CVekViewport> m_selected;
  std::unique_ptr<CVekFList<CVekView>> m_views;  // owns its items
};
