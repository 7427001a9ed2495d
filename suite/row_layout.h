#pragma once

#include "seam/toolkit.h"

// Where the texts of a row stand in the menu's list, and how they are written.
// The top row's texts stand TopRowRise higher.
namespace trelin {

struct LabelPlace {
  Twips left, top, width, height;  // in the row
  LabelFont font;
};

constexpr LabelPlace TitlePlace = {
    1620, 90, 4890, 315, {.points = 9.75F, .bBold = true, .bUnderline = true}};
constexpr LabelPlace DescriptionPlace = {1620, 405, 4890, 585, {}};
constexpr LabelPlace StatusPlace = {1620, 1050, 4890, 240, {}};

constexpr Twips TopRowRise = 15;

}  // namespace trelin
