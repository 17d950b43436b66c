/// The views of the kinds of control that draw themselves.
#pragma once

#include "toolkit/controls.h"
#include "toolkit/file_list_box.h"
#include "toolkit/qt/control_views.h"

namespace tandrel
{

/// True for the kinds whose click is a press and a release over them. Sliders, buttons and boxes tell their own.
bool clickFollowsRelease(const Control& control);

std::unique_ptr<ControlView> makeLabelView(Label& label, FormWidget& window, QWidget* parent);
std::unique_ptr<ControlView> makeImageView(Image& image, FormWidget& window, QWidget* parent);
std::unique_ptr<ControlView> makeFileListBoxView(FileListBox& list, FormWidget& window, QWidget* parent);
std::unique_ptr<ControlView> makeGroupBoxView(GroupBox& box, FormWidget& window, QWidget* parent);
std::unique_ptr<ControlView> makeSliderView(Slider& slider, FormWidget& window, QWidget* parent);

} // namespace tandrel
