#include <cmath>
#include <unordered_map>

#include "app/main_menu.h"
#include "texts/numbers.h"
#include "texts/paths.h"

namespace trelin {

namespace {

std::int16_t RoundToInt16(float value, const char* sWhat) {
  return ToInt16(std::llrint(value), sWhat);
}

// The screen's twips per pixel, as the drawing uses them.
struct PixelSize {
  std::int16_t px = RoundToInt16(Screen::TwipsPerPixelX(), "The width of a pixel in twips");
  std::int16_t py = RoundToInt16(Screen::TwipsPerPixelY(), "The height of a pixel in twips");
};

struct FrameLine {
  std::int32_t x1, y1, x2, y2;
  Color color;
};

void DrawLines(PictureBox& picBox, std::initializer_list<FrameLine> lines) {
  const auto twips = [](std::int32_t l) { return static_cast<Twips>(l); };
  for (const FrameLine& line : lines)
    picBox.Line(twips(line.x1), twips(line.y1), twips(line.x2), twips(line.y2), line.color);
}

void DrawRaisedFrame(PictureBox& picBox, std::int32_t W, std::int32_t H, PixelSize pixel) {
  const auto [px, py] = pixel;
  DrawLines(picBox, {
                        {0, 0, W, 0, Color::ButtonHighlight},
                        {0, H, 0, 0, Color::ButtonHighlight},
                        {px, py, W - px, py, Color::Light3D},
                        {px, H - py, px, -py, Color::Light3D},
                        {W - px, 0, W - px, H - py, Color::DarkShadow3D},
                        {W - px, H - py, 0, H - py, Color::DarkShadow3D},
                        {W - 2 * px, py, W - 2 * px, H - 2 * py, Color::ButtonShadow},
                        {W - 2 * px, H - 2 * py, px, H - 2 * py, Color::ButtonShadow},
                    });
}

void DrawSunkenFrame(PictureBox& picBox, std::int32_t W, std::int32_t H, PixelSize pixel) {
  const auto [px, py] = pixel;
  DrawLines(picBox, {
                        {0, 0, W, 0, Color::DarkShadow3D},
                        {0, H, 0, 0, Color::DarkShadow3D},
                        {px, py, W - px, py, Color::ButtonShadow},
                        {px, H - py, px, -py, Color::ButtonShadow},
                        {W - px, 0, W - px, H - py, Color::ButtonHighlight},
                        {W - px, H - py, 0, H - py, Color::ButtonHighlight},
                    });
}

// What a screen reader says of a product's row.
std::string RowName(const MenuItem& objItem) {
  std::string sName = objItem.Title();
  for (const std::string& sText : {objItem.Description(), objItem.Status()}) {
    if (!sName.empty() && !sText.empty()) sName += ", ";
    sName += sText;
  }
  return sName;
}

std::string WithoutAmpersand(std::string sCaption) {
  std::erase(sCaption, '&');
  return sCaption;
}

// The given number of pixels away from the edges.
void DrawFocus(PictureBox& picBox, Twips pixels) {
  if (!picBox.ShowsFocus()) return;
  const Twips x = Screen::TwipsPerPixelX() * pixels;
  const Twips y = Screen::TwipsPerPixelY() * pixels;
  picBox.DrawFocusRectangle(x, y, picBox.Width() - 2 * x, picBox.Height() - 2 * y);
}

// At the left and right of a row. Without a colour of its own, the current row needs it.
void CloseFrame(PictureBox& picBox) {
  const Twips right = picBox.Width() - Screen::TwipsPerPixelX();
  picBox.Line(0, 0, 0, picBox.Height(), picBox.ForeColor());
  picBox.Line(right, 0, right, picBox.Height(), picBox.ForeColor());
}

// Where an image begins that is centred in a box, in twips.
std::int16_t CenteredOffset(Twips boxSize, std::int16_t nImagePixels, std::int16_t nTwipsPerPixel) {
  const std::int32_t lImage = std::int32_t{nImagePixels} * nTwipsPerPixel;
  const auto lRest = static_cast<std::int32_t>(std::llrint(boxSize - static_cast<Twips>(lImage)));
  return ToInt16(lRest / 2, "The position of an icon in twips");
}

std::string ImageKey(std::int32_t lItem) { return "n" + std::to_string(lItem); }

}  // namespace

void frmMainMenu::LoadIcons() {
  std::unordered_map<std::string, std::string> keys;  // by file name: each file is read once
  const std::int32_t lCount = objSetupList->MenuItems().Count();
  keys.reserve(static_cast<std::size_t>(lCount));
  for (std::int32_t i = 1; i <= lCount; ++i) {
    const std::string sImageFile = objSetupList->MenuItems().Item(i)->ImageFile();
    if (sImageFile.empty()) continue;
    const auto [key, bNew] = keys.try_emplace(sImageFile, ImageKey(i));
    if (bNew)
      LoadIcon(key->second, sImageFile);
    else
      imlIcons.AddAgain(ImageKey(i), key->second);
  }
}

// A file that is missing or no picture adds nothing: the product keeps the
// default image, as one does that names no file.
void frmMainMenu::LoadIcon(const std::string& sKey, const std::string& sImageFile) {
  try {
    imlIcons.Add(sKey, Picture::LoadFromFile(ProgramFile(sImageFile)));
  } catch (...) {
    return;
  }
}

void frmMainMenu::ShowItems(std::int16_t& nFirst, std::int16_t nLast) {
  for (PictureBox& picBox : picListItem) picBox.SetBackColor(Color::ButtonFace);
  if (nFirst < 1) nFirst = 1;
  for (std::int32_t i = nFirst; i <= nLast; ++i)
    ShowItem(static_cast<std::int16_t>(i), static_cast<std::int16_t>(i - nFirst));
}

void frmMainMenu::ShowItem(std::int16_t nItem, std::int16_t nRow) {
  const auto objItem = objSetupList->MenuItems().Item(nItem);
  lblTitle[nRow].SetCaption(objItem->Title());
  lblDescription[nRow].SetCaption(objItem->Description());
  lblStatus[nRow].SetCaption(objItem->Status());
  picListItem[nRow].SetAccessibleName(RowName(*objItem));
  picListItem[nRow].SetSelected(nItem == objSetupList->CurrentIndex());
  picIcon[nRow].SetAccessibleName(WithoutAmpersand(cmdSetup.Caption()) + ": " + objItem->Title());
  picListItem[nRow].SetVisible(true);
  if (nItem == objSetupList->CurrentIndex()) {
    picListItem[nRow].SetBackColor(Color::Cyan);
    picListItem[nRow].Refresh();
  }
  DrawIcon(picIcon[nRow], nItem, false);
}

// Tab goes to one row and its icon: the selected one, which it leaves selected.
void frmMainMenu::RefreshRows() {
  std::int16_t nFirst = model_->FirstItem();
  ShowItems(nFirst, model_->LastItem());
  const std::int16_t nTabRow = model_->SelectedRow().value_or(0);
  for (std::int16_t i = 0; i < Rows; ++i) {
    picListItem[i].SetTabStop(i == nTabRow);
    picIcon[i].SetTabStop(i == nTabRow);
  }
}

void frmMainMenu::picListItem_Paint(std::int16_t Index) {
  PictureBox& picBox = picListItem[Index];
  DrawFocus(picBox, 3);
  if (picBox.BackColor() == Color::ButtonFace) return;
  const Twips bottom = picBox.Height() - Screen::TwipsPerPixelY();
  picBox.Line(0, 0, picBox.Width(), 0, picBox.ForeColor());
  picBox.Line(0, bottom, picBox.Width(), bottom, picBox.ForeColor());
  if (Screen::SystemColorsOnly()) CloseFrame(picBox);
}

void frmMainMenu::picIcon_Paint(std::int16_t Index) {
  PictureBox& picBox = picIcon[Index];
  const auto W = static_cast<std::int32_t>(std::llrint(picBox.Width()));
  const auto H = static_cast<std::int32_t>(std::llrint(picBox.Height()));
  const bool bPressed = model_->bIconPressed();
  (bPressed ? DrawSunkenFrame : DrawRaisedFrame)(picBox, W, H, PixelSize());
  DrawIcon(picBox, ToInt16(model_->FirstItem() + Index, "The product's number"), bPressed);
  DrawFocus(picBox, 4);
}

void frmMainMenu::DrawIcon(PictureBox& picBox, std::int16_t nItem, bool bPressed) {
  const PixelSize pixel;
  std::int16_t nLeft = CenteredOffset(picBox.Width(), imlIcons.ImageWidth(), pixel.px);
  std::int16_t nTop = CenteredOffset(picBox.Height(), imlIcons.ImageHeight(), pixel.py);
  if (bPressed) {
    nLeft = ToInt16(nLeft + pixel.px, "The left edge of an icon in twips");
    nTop = ToInt16(nTop + pixel.py, "The top edge of an icon in twips");
  }
  try {
    const std::string sKey = ImageKey(nItem);
    imlIcons.Draw(imlIcons.Contains(sKey) ? sKey : "Default", picBox, nLeft, nTop);
  } catch (...) {
    return;  // an icon that cannot be drawn is left out
  }
}

}  // namespace trelin
