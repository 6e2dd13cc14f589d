// Persisted names of the sketch and the user options.
#include "OC/Schema.h"
#include "V7Doc/view/Sketch.h"
#include "V7Doc/view/UserOptions.h"

namespace oc {
using namespace v7;
using namespace v7::v7qvi;

template <>
const RecordType& TypeOf<SketchStyle>() {
  using T = SketchStyle;
  static const RecordType& t = Schema<T>(L"SketchStyle")
      .Add(&T::nColor_, L"nColor_", L"Color")
      .Add(&T::fLineWidth_, L"fLineWidth_", L"LineWidth", meta::MetaDataTraits{}.Bounds(0, 1000).Units(L"pt"))
      .Done();
  return t;
}

namespace {
// What an arc and a circle both start with: the circle they lie on.
template <class T>
Schema<T> OnCircle(const wchar_t* name) {
  Schema<T> s(name);
  s.Add(&T::fCenterX_, L"fCenterX_", L"CenterX")
      .Add(&T::fCenterY_, L"fCenterY_", L"CenterY")
      .Add(&T::fRadius_, L"fRadius_", L"Radius", meta::MetaDataTraits{}.Bounds(0, qvi::kNoValue));
  return s;
}
}  // namespace

template <>
const RecordType& TypeOf<SkArc>() {
  using T = SkArc;
  static const RecordType& t = OnCircle<T>(L"SkArc")
      .Add(&T::fStartAngle_, L"fStartAngle_", L"StartAngle")
      .Add(&T::fEndAngle_, L"fEndAngle_", L"EndAngle")
      .Add(&T::style_, L"style_", L"Style")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<SkCircle>() {
  using T = SkCircle;
  static const RecordType& t = OnCircle<T>(L"SkCircle")
      .Add(&T::bFilled_, L"bFilled_", L"Filled")
      .Add(&T::style_, L"style_", L"Style")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<SkLine>() {
  using T = SkLine;
  static const RecordType& t = Schema<T>(L"SkLine")
      .Add(&T::fX1_, L"fX1_", L"X1")
      .Add(&T::fY1_, L"fY1_", L"Y1")
      .Add(&T::fX2_, L"fX2_", L"X2")
      .Add(&T::fY2_, L"fY2_", L"Y2")
      .Add(&T::bArrowStart_, L"bArrowStart_", L"ArrowStart")
      .Add(&T::bArrowEnd_, L"bArrowEnd_", L"ArrowEnd")
      .Add(&T::style_, L"style_", L"Style")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<SkText>() {
  using T = SkText;
  static const RecordType& t = Schema<T>(L"SkText")
      .Add(&T::text_, L"text_", L"Text")
      .Add(&T::fX_, L"fX_", L"X")
      .Add(&T::fY_, L"fY_", L"Y")
      .Add(&T::fHeight_, L"fHeight_", L"Height", meta::MetaDataTraits{}.Bounds(0, 1000).Units(L"pt"))
      .Add(&T::fAngle_, L"fAngle_", L"Angle")
      .Add(&T::style_, L"style_", L"Style")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<SketchLabel>() {
  using T = SketchLabel;
  static const RecordType& t = Schema<T>(L"SketchLabel")
      .Add(&T::nContainer_, L"nContainer_", L"ContainerID")
      // A label tied to a deleted item has nothing to move with.
      .Add(&T::nRecord_, L"nRecord_", L"RecordID",
           meta::MetaDataTraits{}.RefVia(L"nContainer_").Flag(meta::MetaDataTraits::DropWhenGone))
      .Add(&T::text_, L"text_", L"Text")
      .Add(&T::fOffsetX_, L"fOffsetX_", L"OffsetX")
      .Add(&T::fOffsetY_, L"fOffsetY_", L"OffsetY")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<SketchImage>() {
  using T = SketchImage;
  static const RecordType& t = Schema<T>(L"SketchImage")
      .Add(&T::fileName_, L"fileName_", L"FileName")
      .Add(&T::fLeft_, L"fLeft_", L"Left")
      .Add(&T::fBottom_, L"fBottom_", L"Bottom")
      .Add(&T::fRight_, L"fRight_", L"Right")
      .Add(&T::fTop_, L"fTop_", L"Top")
      .Add(&T::bVisible_, L"bVisible_", L"Visible")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<Sketch>() {
  using T = Sketch;
  static const RecordType& t = Schema<T>(L"Sketch")
      .Add(&T::vArcs_, L"vArcs_", L"SkArcs[SkArc]")
      .Add(&T::vCircles_, L"vCircles_", L"SkCircles[SkCircle]")
      .Add(&T::vLines_, L"vLines_", L"SkLines[SkLine]")
      .Add(&T::texts_, L"texts_", L"SkTexts[SkText]")
      .Add(&T::vLabels_, L"vLabels_", L"Labels[Label]")
      .Add(&T::vImages_, L"vImages_", L"Images[Image]")
      .Done();
  return t;
}

template <>
const RecordType& TypeOf<GlobalUserOptions>() {
  using T = GlobalUserOptions;
  static const RecordType& t = Schema<T>(L"GlobalUserOptions")
      .Add(&T::bVerifyOnSave_, L"bVerifyOnSave_", L"VerifyOnSave")
      .Add(&T::nAutoSaveMinutes_, L"nAutoSaveMinutes_", L"AutoSaveMinutes", meta::MetaDataTraits{}.Bounds(0, 1440))
      .Add(&T::bConfirmDelete_, L"bConfirmDelete_", L"ConfirmDelete")
      .Add(&T::nUndoLevels_, L"nUndoLevels_", L"UndoLevels", meta::MetaDataTraits{}.Bounds(0, 10000))
      .Add(&T::bSnapToPoints_, L"bSnapToPoints_", L"SnapToPoints")
      .Done();
  return t;
}

}  // namespace oc
