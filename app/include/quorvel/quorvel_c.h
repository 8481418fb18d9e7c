/* Quorvel for hosts in any language: the dialogs of quorvel.h as plain C functions.
 *
 *   quorvel_color_dialog dialog = {.size = sizeof dialog};
 *   dialog.color = 0x000000FF;                            // red
 *   if (quorvel_select_color(&dialog) == QUORVEL_CONFIRMED) { use(dialog.color); }
 *
 * Each dialog has one function and one structure, whose first member is its size in the header that
 * the host was compiled with; members that a later header appends count as zero for an older host,
 * and a size that the library does not know is QUORVEL_BAD_ARGUMENT unless all that lies beyond what
 * it knows is zero. Zero is the ordinary value of every member.
 *
 * A function runs one modal dialog on the calling thread, a user-interface thread of the host, and
 * returns when it has closed. What members hold when it returns is the user's choice if the result is
 * QUORVEL_CONFIRMED, and what the host had put there otherwise. Results above zero are the user's
 * other ways out, those below zero failures: quorvel_last_error says which, in words.
 *
 * All texts are UTF-8 and zero-terminated; a null text reads as the empty one. Dialogs and pages hold
 * texts of code page 932: a text that is no UTF-8 or has other characters is QUORVEL_BAD_TEXT, and no
 * dialog opens. Texts that the library returns are freed with quorvel_free.
 *
 * Colours are 0x00BBGGRR, lengths millimetres, positions pixels of the screen. `registry_key`, below
 * HKEY_CURRENT_USER, is where dialogs keep the colours that the user makes and their settings; null
 * for nowhere. `position` is for the dialog's top-left corner, which is moved by the least that makes
 * the whole dialog visible; null centres the dialog over the active window. */
#ifndef QUORVEL_QUORVEL_C_H
#define QUORVEL_QUORVEL_C_H

/* Names, declarations and headers are those of C. NOLINTBEGIN */

#include <stddef.h>
#include <stdint.h>

#ifdef QUORVELC64_BUILD
#define QUORVEL_C_API __declspec(dllexport)
#else
#define QUORVEL_C_API __declspec(dllimport)
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef int32_t quorvel_result;
enum {
  QUORVEL_CONFIRMED = 0,
  QUORVEL_CANCELLED = 1,
  QUORVEL_MOUSE_PICK = 2, /* the user wants to point in the drawing instead */
  QUORVEL_CLEAR_ALL = 3,  /* the user wants all user papers deleted */
  QUORVEL_OK = 0,         /* of functions without a dialog */
  QUORVEL_BAD_ARGUMENT = -1,
  QUORVEL_BAD_TEXT = -2,
  QUORVEL_BAD_PAGE = -3, /* bytes that are no page of a known kind */
  QUORVEL_FILE_ERROR = -4,
  QUORVEL_OUT_OF_MEMORY = -5,
  QUORVEL_FAILED = -6 /* the dialog could not be shown */
};

/* "1.2.3"; never freed. */
QUORVEL_C_API const char* quorvel_version(void);

/* What the last call of this thread failed for, in English; the empty text after a call that did not
 * fail. Valid until the thread's next call; never freed. */
QUORVEL_C_API const char* quorvel_last_error(void);

/* Frees a text that the library returned; null is ignored. */
QUORVEL_C_API void quorvel_free(char* text);

typedef struct quorvel_position {
  int32_t x;
  int32_t y;
} quorvel_position;

/* ---- Values */

typedef struct quorvel_text_dialog {
  size_t size;
  const char* title;
  const char* comment; /* what is asked for */
  const char* text;    /* shown at first */
  const quorvel_position* position;
  char* result; /* when confirmed, what was typed: quorvel_free */
} quorvel_text_dialog;

/* Asks for one line of text. */
QUORVEL_C_API quorvel_result quorvel_input_text(quorvel_text_dialog* dialog);

typedef struct quorvel_scale_dialog {
  size_t size;
  const char* title;
  const char* comment;
  const quorvel_position* position;
  double scale; /* n of "1 / n", shown as a whole number */
} quorvel_scale_dialog;

/* Asks for the denominator of a drawing scale. */
QUORVEL_C_API quorvel_result quorvel_input_scale(quorvel_scale_dialog* dialog);

typedef struct quorvel_dpi_dialog {
  size_t size;
  const quorvel_position* position;
  int32_t dpi;
} quorvel_dpi_dialog;

/* Asks for an image resolution in dots per inch. */
QUORVEL_C_API quorvel_result quorvel_input_dpi(quorvel_dpi_dialog* dialog);

typedef struct quorvel_point_dialog {
  size_t size;
  const quorvel_position* position;
  int32_t allow_mouse_pick; /* non-zero offers QUORVEL_MOUSE_PICK */
  double x;
  double y;
  double z;
} quorvel_point_dialog;

/* Asks for a point, shown and returned with three decimals; the first leaves z alone. */
QUORVEL_C_API quorvel_result quorvel_input_point_xy(quorvel_point_dialog* dialog);
QUORVEL_C_API quorvel_result quorvel_input_point_xyz(quorvel_point_dialog* dialog);

typedef struct quorvel_paper_dialog {
  size_t size;
  int32_t width;
  int32_t height;
  char* result; /* when confirmed, the name, which ends with the size, "A3(420x297)": quorvel_free */
} quorvel_paper_dialog;

/* Asks for the name and the size of a user paper, in whole millimetres; or QUORVEL_CLEAR_ALL. */
QUORVEL_C_API quorvel_result quorvel_set_user_paper(quorvel_paper_dialog* dialog);

typedef struct quorvel_check_list_dialog {
  size_t size;
  const char* title;
  const char* const* items;
  uint8_t* ticked; /* one for each item: non-zero for ticked, 0 or 1 when confirmed */
  size_t count;
} quorvel_check_list_dialog;

/* Lets the user tick items. */
QUORVEL_C_API quorvel_result quorvel_check_list(quorvel_check_list_dialog* dialog);

/* ---- Colours */

typedef struct quorvel_color_dialog {
  size_t size;
  const char* registry_key;
  const quorvel_position* position;
  uint32_t color;
} quorvel_color_dialog;

/* Out of basic colours and 16 of the user's making. */
QUORVEL_C_API quorvel_result quorvel_select_color(quorvel_color_dialog* dialog);
/* Out of the user's palette, by components, or out of a field of hues. */
QUORVEL_C_API quorvel_result quorvel_select_color_ex(quorvel_color_dialog* dialog);
/* By its components in RGB, CMYK or HSB. */
QUORVEL_C_API quorvel_result quorvel_edit_color(quorvel_color_dialog* dialog);
/* By hue, saturation and brightness; centred over the active window. */
QUORVEL_C_API quorvel_result quorvel_select_rgb(quorvel_color_dialog* dialog);

/* ---- Fonts */

/* Bits of `locked`: what the user may not change. */
enum {
  QUORVEL_LOCK_FACE = 0x001,
  QUORVEL_LOCK_STYLE = 0x002,
  QUORVEL_LOCK_STRIKE_OUT = 0x004,
  QUORVEL_LOCK_UNDERLINE = 0x008,
  QUORVEL_LOCK_COLOR = 0x010,
  QUORVEL_LOCK_BACK_COLOR = 0x020,
  QUORVEL_LOCK_HEIGHT = 0x040,
  QUORVEL_LOCK_WIDTH = 0x080,
  QUORVEL_LOCK_VERTICAL_PLACE = 0x100,
  QUORVEL_LOCK_HORIZONTAL_PLACE = 0x200
};

typedef struct quorvel_font {
  char face[96]; /* at most 31 bytes in code page 932 */
  double height; /* of the characters, millimetres */
  double width;  /* 0 for the natural one */
  int32_t dots_height; /* as in LOGFONT; each 0 for what the millimetres come to */
  int32_t dots_width;
  int32_t escapement;
  int32_t orientation;
  int32_t weight;
  uint8_t italic;
  uint8_t underline;
  uint8_t strike_out;
  uint8_t strike_out_type; /* 0 one line, 1 two lines */
  uint8_t char_set;
  uint8_t out_precision;
  uint8_t clip_precision;
  uint8_t quality;
  uint8_t pitch_and_family;
  uint8_t vertical_place;   /* 0 top, 1 middle, 2 bottom: of a cell's font */
  uint8_t horizontal_place; /* 0 left, 1 centre, 2 right: of a cell's font */
  uint8_t reserved;
  uint32_t color;
  uint32_t back_color; /* of a cell's font */
} quorvel_font;

typedef struct quorvel_font_dialog {
  size_t size;
  const char* registry_key;
  const char* title; /* null for the dialog's own */
  double dots_per_mm; /* 0 for 300 dots per inch */
  int32_t show_strike_type; /* not for a cell's font */
  int32_t fixed_color;
  uint32_t locked; /* a sum of QUORVEL_LOCK_ bits */
  quorvel_font font;
} quorvel_font_dialog;

/* Asks for a font with its size in millimetres; the second for that of a cell, with its background
 * colour and its place in the cell. */
QUORVEL_C_API quorvel_result quorvel_select_font(quorvel_font_dialog* dialog);
QUORVEL_C_API quorvel_result quorvel_select_font_ex(quorvel_font_dialog* dialog);

/* ---- Pages */

/* A page that can be laid out, of one of two kinds. It belongs to the host until quorvel_page_free. */
typedef struct quorvel_page quorvel_page;

typedef int32_t quorvel_page_kind;
enum {
  QUORVEL_PAGE_GRID = 1,    /* one grid of cells, files *.mtpld */
  QUORVEL_PAGE_EXTENDED = 2 /* header, list and footer, files *.mtpld2 */
};

/* Of a page of header, list and footer; a page of one grid has but block 0. */
typedef int32_t quorvel_block;
enum { QUORVEL_HEADER = 0, QUORVEL_LIST = 1, QUORVEL_FOOTER = 2 };

/* A page of one cell of 10 x 10 mm in each block. */
QUORVEL_C_API quorvel_result quorvel_page_create(quorvel_page_kind kind, quorvel_page** page);
QUORVEL_C_API void quorvel_page_free(quorvel_page* page);
/* 0 for null. */
QUORVEL_C_API quorvel_page_kind quorvel_page_kind_of(const quorvel_page* page);

/* A layout file, of either kind. */
QUORVEL_C_API quorvel_result quorvel_page_open(const char* path, quorvel_page** page);
/* Replaces an old file in one step. */
QUORVEL_C_API quorvel_result quorvel_page_save(const quorvel_page* page, const char* path);
/* The bytes of such a file. */
QUORVEL_C_API quorvel_result quorvel_page_read(const void* bytes, size_t count,
                                               quorvel_page** page);
/* `*needed` becomes the number of bytes of the page's file; they are written to `bytes` if `capacity`
 * is at least that, and QUORVEL_BAD_ARGUMENT is the result otherwise, but QUORVEL_OK for a null
 * `bytes` and capacity 0, which only asks. */
QUORVEL_C_API quorvel_result quorvel_page_write(const quorvel_page* page, void* bytes,
                                                size_t capacity, size_t* needed);

/* Rows and columns, 1 to 255 each. Cells keep their texts and lengths; new ones are as long as the
 * others on average. */
QUORVEL_C_API quorvel_result quorvel_page_divide(quorvel_page* page, quorvel_block block,
                                                 int32_t rows, int32_t columns, double dots_per_mm);
QUORVEL_C_API quorvel_result quorvel_page_counts(const quorvel_page* page, quorvel_block block,
                                                 int32_t* rows, int32_t* columns);
/* All rows or columns together; `equal` non-zero makes them equally long, otherwise they keep their
 * proportions. */
QUORVEL_C_API quorvel_result quorvel_page_set_size(quorvel_page* page, quorvel_block block,
                                                   double width, double height, int32_t equal);
QUORVEL_C_API quorvel_result quorvel_page_size(const quorvel_page* page, quorvel_block block,
                                               double* width, double* height);
QUORVEL_C_API quorvel_result quorvel_page_set_text(quorvel_page* page, quorvel_block block,
                                                   int32_t row, int32_t column, const char* text);
/* `*text`: quorvel_free. */
QUORVEL_C_API quorvel_result quorvel_page_text(const quorvel_page* page, quorvel_block block,
                                               int32_t row, int32_t column, char** text);

typedef struct quorvel_layout_dialog {
  size_t size;
  const char* registry_key;
  const quorvel_position* position;
  quorvel_page* page;     /* of the function's kind; changed when confirmed */
  double dots_per_mm;     /* of its fonts; 0 for 300 dots per inch */
  int32_t line_mode;      /* of a page of one grid: outer and inner lines, no margin, no files */
  const char* const* insertions; /* names that can be inserted as tags "<M>number name</M>" */
  size_t insertion_count;
  const uint32_t* numbers; /* one less than the tags' numbers, one for each name; null counts them */
  size_t number_count;
  const char* const* fields; /* of an extended page: names of the host's data fields */
  size_t field_count;
} quorvel_layout_dialog;

/* Lets the user lay out a page; the first one of QUORVEL_PAGE_GRID, the second of
 * QUORVEL_PAGE_EXTENDED. */
QUORVEL_C_API quorvel_result quorvel_edit_layout(quorvel_layout_dialog* dialog);
QUORVEL_C_API quorvel_result quorvel_edit_layout_ex(quorvel_layout_dialog* dialog);

#ifdef __cplusplus
}
#endif

/* NOLINTEND */

#endif
