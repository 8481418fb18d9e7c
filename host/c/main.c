/* A host in C: asks for a name and a colour, lets the user lay out a title block, and prints what came
 * of it, in UTF-8.
 *
 *   quorvel-c-host [FILE]     the title block is kept in FILE, a layout file */
#include <quorvel/quorvel_c.h>

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <stdio.h>

static int fail(const char* what) {
  fprintf(stderr, "quorvel-c-host: %s: %s\n", what, quorvel_last_error());
  return 1;
}

/* Zero when confirmed. */
static int ask_for_name(void) {
  quorvel_text_dialog dialog = {.size = sizeof dialog};
  dialog.title = "図面";
  dialog.comment = "図面の名前を入力してください。";
  dialog.text = "平面図";
  switch (quorvel_input_text(&dialog)) {
    case QUORVEL_CONFIRMED:
      printf("name %s\n", dialog.result);
      quorvel_free(dialog.result);
      return 0;
    case QUORVEL_CANCELLED:
      return 1;
    default:
      return fail("name");
  }
}

static int ask_for_color(void) {
  quorvel_color_dialog dialog = {.size = sizeof dialog};
  dialog.color = 0x00FF6633; /* 0x00BBGGRR */
  switch (quorvel_select_color(&dialog)) {
    case QUORVEL_CONFIRMED:
      printf("color #%02X%02X%02X\n", (unsigned)(dialog.color & 0xFF),
             (unsigned)(dialog.color >> 8 & 0xFF), (unsigned)(dialog.color >> 16 & 0xFF));
      return 0;
    case QUORVEL_CANCELLED:
      return 1;
    default:
      return fail("color");
  }
}

/* A page from its file, or a new one of 2 x 4 cells where there is none; null on a failure. */
static quorvel_page* title_block(const char* file) {
  quorvel_page* page = NULL;
  if (*file != '\0') {
    switch (quorvel_page_open(file, &page)) {
      case QUORVEL_OK:
        return page;
      case QUORVEL_FILE_ERROR: /* not there yet */
        break;
      default:
        return NULL;
    }
  }
  if (quorvel_page_create(QUORVEL_PAGE_GRID, &page) != QUORVEL_OK) {
    return NULL;
  }
  if (quorvel_page_divide(page, 0, 2, 4, 0) != QUORVEL_OK ||
      quorvel_page_set_size(page, 0, 170, 20, 1) != QUORVEL_OK ||
      quorvel_page_set_text(page, 0, 0, 0, "図面名") != QUORVEL_OK) {
    quorvel_page_free(page);
    return NULL;
  }
  return page;
}

static int lay_out(const char* file) {
  static const char* const fields[] = {"図番", "縮尺", "作成日"};
  int32_t rows = 0;
  int32_t columns = 0;
  int status = 1;
  quorvel_layout_dialog dialog = {.size = sizeof dialog};
  dialog.page = title_block(file);
  if (dialog.page == NULL) {
    return fail("page");
  }
  dialog.insertions = fields;
  dialog.insertion_count = sizeof fields / sizeof fields[0];
  switch (quorvel_edit_layout(&dialog)) {
    case QUORVEL_CONFIRMED:
      if ((*file != '\0' && quorvel_page_save(dialog.page, file) != QUORVEL_OK) ||
          quorvel_page_counts(dialog.page, 0, &rows, &columns) != QUORVEL_OK) {
        status = fail("page");
      } else {
        printf("page %d x %d cells\n", (int)rows, (int)columns);
        status = 0;
      }
      break;
    case QUORVEL_CANCELLED:
      break;
    default:
      status = fail("page");
  }
  quorvel_page_free(dialog.page);
  return status;
}

int wmain(int argument_count, wchar_t** arguments) {
  char file[4 * MAX_PATH] = "";
  if (argument_count > 1 && WideCharToMultiByte(CP_UTF8, 0, arguments[1], -1, file, sizeof file,
                                                NULL, NULL) == 0) {
    fputs("quorvel-c-host: the file's name is too long\n", stderr);
    return 1;
  }
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  if (ask_for_name() != 0 || ask_for_color() != 0 || lay_out(file) != 0) {
    puts("cancelled");
    return 1;
  }
  return 0;
}
