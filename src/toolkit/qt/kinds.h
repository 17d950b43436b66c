/// The views of each kind of control.
#pragma once

#include "toolkit/controls.h"
#include "toolkit/qt/control_views.h"

namespace tandrel
{

/// True for the kinds whose click is a press and a release over them. Sliders, buttons and boxes tell their own.
bool clickFollowsRelease(const Control& control);

std::unique_ptr<ControlView> makeLabelView(Label& label, FormWidget& window, QWidget* parent);
std::unique_ptr<ControlView> makeImageView(Image& image, FormWidget& window, QWidget* parent);
std::unique_ptr<ControlView> makePictureBoxView(PictureBox& box, FormWidget& window, QWidget* parent);
std::unique_ptr<ControlView> makeButtonView(CommandButton& button, FormWidget& window, QWidget* parent);
std::unique_ptr<ControlView> makeCheckBoxView(CheckBox& box, FormWidget& window, QWidget* parent);
std::unique_ptr<ControlView> makeSliderView(Slider& slider, FormWidget& window, QWidget* parent);

} // namespace tandrel
