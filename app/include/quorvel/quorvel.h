// Quorvel: ready-made modal dialogs for drawing applications.
//
//   #include <quorvel/quorvel.h>
//   CString text("初期値");                       // code page 932, as all narrow texts here
//   if (__InputTextDlg("題名", "説明", &text, nullptr)) { /* text holds what was typed */ }
//
// Every entry runs one modal dialog on the calling thread (a user-interface thread of the host) and
// returns when it has closed. The thread's active window is disabled meanwhile. All pointers belong
// to the caller and are used only during the call. Results are written only when the user confirmed.
// No entry throws.
//
// Texts are zero-terminated in code page 932; a null text reads as the empty one. `position` is the
// screen point, in pixels, for the dialog's top-left corner: a point at which the dialog fits on its
// monitor is taken exactly, any other is moved by the least that makes the whole dialog visible.
// Null centres the dialog over the active window. Where a pointer that carries a value is null, the
// entry opens nothing and returns what it returns for a dialog that cannot be created.
// Colours are 0x00BBGGRR; a highest byte that is not 0 does not count, and comes back as 0 when
// confirmed. Of a caption the first 1,000 characters are shown.
#pragma once

#include "framework/base_types.h"
#include "framework/collections.h"
#include "framework/cstring.h"
#include "framework/geometry.h"
#include "kivdata/kiv_font.h"
#include "kivdata/kiv_font_ex.h"
#include "kivdata/layout_cel_data.h"
#include "kivdata/layout_ex_page_data.h"
#include "kivdata/layout_page_data.h"
#include "kivdata/pen_status.h"
#include "kivdata/sys_env.h"
#include "kivdata/val_info_one_data.h"

/// What the point entries return.
enum : INT_PTR {
  QUORVEL_POINT_CONFIRMED = 0,
  QUORVEL_POINT_CANCELLED = 1,
  QUORVEL_POINT_MOUSE_PICK = 2,
};

/// What the user may change in the font dialogs: the bits of their `enableMask`.
enum : UINT {
  QUORVEL_FONT_FACE = 0x001,
  QUORVEL_FONT_STYLE = 0x002,
  QUORVEL_FONT_STRIKEOUT = 0x004,
  QUORVEL_FONT_UNDERLINE = 0x008,
  QUORVEL_FONT_COLOUR = 0x010,
  QUORVEL_FONT_BACK_COLOUR = 0x020,  ///< __SelFontExDlg only
  QUORVEL_FONT_HEIGHT = 0x040,
  QUORVEL_FONT_WIDTH = 0x080,
  QUORVEL_FONT_VERTICAL = 0x100,    ///< __SelFontExDlg only
  QUORVEL_FONT_HORIZONTAL = 0x200,  ///< __SelFontExDlg only
  QUORVEL_FONT_ALL = 0x3FF,
};

extern "C" {

/// Asks for a colour, 0x00BBGGRR, out of 48 basic ones and 16 of the user's own making; the user may
/// make new ones with the picker of __SelRGBDlg. The made colours are loaded from `env` and stored
/// there as soon as the user has made one; with a null `env` they are white and not stored. TRUE
/// when confirmed.
BOOL __SelColorDlg(CKivSysEnv* env, COLORREF* color, CPoint* position);

/// Asks for a colour in one of three ways, each on a page: out of the palette of stored colours, by
/// its components in RGB, CMYK or HSB, or out of a field of hues and saturations. The palette is
/// loaded from `env` and stored there when the user confirms; with a null `env` it is empty and not
/// stored. Its first 41 colours cannot be deleted. TRUE when confirmed.
BOOL __SelColorDlgEx(CKivSysEnv* env, COLORREF* color, CPoint* position);

/// Asks for a colour by its components in RGB, CMYK or HSB. `env`, which gives the font of the
/// fields, may be null. TRUE when confirmed.
BOOL __EditColorDlg(CKivSysEnv* env, COLORREF* color, CPoint* position);

/// Asks for a colour by hue, saturation and brightness or by red, green and blue. TRUE when
/// confirmed.
BOOL __SelRGBDlg(COLORREF* color);

/// Asks for a font: face, style, effects, colour, and its size in millimetres, height and width from
/// 0.0 to 9999.0 (width 0: the natural one). The sizes shown are those of the font's record at
/// `dotsPerMm`; one within 0.000001 of zero stands for 300 dots per inch. At a resolution that is
/// negative or no finite number the font's own millimetres are shown, and its record keeps its size.
/// `env` keeps the made colours of the colour dialog, as for __SelColorDlg, and may be null. A null
/// `title` leaves the dialog's own. With `showStrikeType` the user chooses between one and two
/// strike-out lines; with `fixedColour` neither the colour nor that. `enableMask` is a sum of
/// QUORVEL_FONT_ bits; the dialog is centred over the active window.
/// TRUE when confirmed; `font` then holds the choice, and its record the size made from the
/// millimetres. What the dialog does not show stays as it was, so does an untouched size to the last
/// bit; a face that is not installed stays unless the user picks another.
BOOL __SelFontDlg(CKivSysEnv* env, CKivFont* font, double dotsPerMm, const char* title,
                  BOOL showStrikeType, BOOL fixedColour, UINT enableMask);

/// As __SelFontDlg for the font of a cell, with the background colour and the place of the text in
/// the cell; the strike-out type is neither shown nor changed. With `fixedColour` the user can change
/// neither colour.
BOOL __SelFontExDlg(CKivSysEnv* env, CKivFontEx* font, double dotsPerMm, const char* title,
                    BOOL fixedColour, UINT enableMask);

/// Asks for one line of text. TRUE when confirmed; `text` then holds the edited text.
BOOL __InputTextDlg(const char* title, const char* comment, CString* text, CPoint* position);

/// Asks for the denominator of a drawing scale, "1 /" n. The dialog shows `*scale` rounded to a
/// whole number, half away from zero; what the user types may have decimals, and a text that is
/// not a number gives 0.0. TRUE when confirmed; an untouched field returns the rounded number.
BOOL __InputScaleDlg(const char* title, const char* comment, double* scale, CPoint* position);

/// Asks for an image resolution in dots per inch, a whole number of any sign. TRUE when confirmed.
BOOL __InputDpiDlg(int* dpi, CPoint* position);

/// Asks for a point with two coordinates, in an array of 2 doubles: the field X shows and returns
/// element 1, the field Y element 0, both rounded to three decimals. With `allowMousePick` the
/// dialog has a button that asks the host to let the user point in the drawing instead.
/// Returns QUORVEL_POINT_CONFIRMED, QUORVEL_POINT_CANCELLED (also on failure) or
/// QUORVEL_POINT_MOUSE_PICK; the point is written only when confirmed.
INT_PTR __InputPointXYDlg(double* point, BOOL allowMousePick, CPoint* position);

/// As __InputPointXYDlg with three coordinates: an array of 3 doubles, field Z is element 2.
INT_PTR __InputPointXYZDlg(double* point, BOOL allowMousePick, CPoint* position);

/// Asks for the name and the size of a user paper, in whole millimetres of any sign. The name field
/// starts empty; the returned name ends with the size, as in "A3(420x297)". The first and the last
/// argument are ignored. Returns 1 when confirmed, `*clearAll` being 0 then, or when the user asked
/// for all user papers to be deleted, `*clearAll` being 1 and nothing else written. Returns 0
/// otherwise; cancelling sets `*clearAll` to 0, a dialog that could not be created leaves it alone.
INT_PTR __UserPaperSetDlg(void* ignored, CString* name, int* width, int* height, int* clearAll,
                          void* alsoIgnored);

/// Lets the user tick items. `states` has a byte for each item, non-zero for ticked; as many items
/// are shown as both arrays have. Returns IDOK (1) when confirmed, each shown item's byte being 0 or
/// 1 then; IDCANCEL (2) when cancelled; -1 when the dialog could not be created.
INT_PTR __CheckListDlg(const CString* title, const CArray<CString, CString&>* items,
                       CByteArray* states);

/// Lets the user lay out a page that is one grid of cells: the number and the lengths of rows and
/// columns, and text, font, colours and alignment of each cell; cells can be merged. `lineMode` 0 is
/// for a page with margin and frame, which the user can save to a layout file and replace by one;
/// otherwise the page has an outer line and inner lines. The user can make 1 to 20 rows and columns.
/// `insertions` are names, such as those of data fields, that the user can insert into cells as tags
/// "<M>number name</M>". The number is the entry of `numbers` at the same place, plus 1, if both have
/// the same count, else the name's place, counted from 1. `dotsPerMm` is the resolution of the fonts
/// (0: 300 dots per inch). `env` keeps the colours that the user works with. All but `page` may be
/// null. TRUE when confirmed; `page` then is what the user made of it, otherwise it is untouched.
BOOL __LayoutEditDlg(CKivSysEnv* env, CLayoutPageData* page, CStringArray* insertions,
                     CDWordArray* numbers, double dotsPerMm, int lineMode, CPoint* position);

/// As __LayoutEditDlg for a page of three blocks, header, list and footer, which share their columns:
/// up to 20 columns and 5 rows in each block. Each line of a cell can be shown or hidden, and cells can
/// show values of the host's data: `fields` are the names of its data fields.
BOOL __LayoutExEditDlg(CKivSysEnv* env, CLayoutExPageData* page, CStringArray* fields,
                       CStringArray* insertions, CDWordArray* numbers, double dotsPerMm,
                       CPoint* position);
}
