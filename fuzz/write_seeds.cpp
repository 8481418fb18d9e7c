// write_seeds FOLDER
// Writes what the fuzzers begin with: for each parser a folder of inputs that the model itself
// wrote, so that they are accepted, and of calculations as they are typed. The status is 0 only if
// every file was written.
#include "cli/commands.h"
#include "cli/json_options.h"
#include "kivdata/kiv_font.h"
#include "kivdata/layout_ex_page_data.h"
#include "kivdata/layout_page_data.h"
#include "kivdata/made_colours.h"
#include "kivdata/val_info_one_data.h"

#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// A folder for the seeds of one parser, made where there is none.
class SeedFolder {
public:
  explicit SeedFolder(std::filesystem::path folder) : m_folder(std::move(folder)) {
    std::filesystem::create_directories(m_folder);
  }

  /// Writes one page as a layout file. Throws std::runtime_error where it cannot.
  template <class Page>
  void WritePage(const std::string& name, const Page& page) const {
    if (page.SaveFile((m_folder / name).string().c_str()) == 0) {
      throw std::runtime_error("cannot write " + name);
    }
  }

  /// Writes one seed. Throws std::ios_base::failure where it cannot.
  void Write(const std::string& name, std::string_view bytes) const {
    std::ofstream file;
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file.open(m_folder / name, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
  }

private:
  std::filesystem::path m_folder;
};

void WriteExpressions(const std::filesystem::path& top) {
  const SeedFolder folder(top / "expression");
  // The last ones are in full width.
  const std::array texts{"297",
                         "1000/3",
                         "210-2*15.5",
                         "(297-20)/4",
                         " - ( 1e2 + .5 ) * -3 ",
                         "1/(2-2)",
                         "1e308*10",
                         "\x82\x51\x81\x7E\x82\x52\x81\x80\x82\x53",
                         "\x81\x69\x82\x50\x81\x7B\x82\x51\x81\x6A"};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    folder.Write("text" + std::to_string(i), texts.at(i));
  }
}

/// An object with every option of a subcommand, each with a value of its kind.
std::string JsonOf(const quorvel::cli::Command& command) {
  using enum quorvel::cli::OptionKind;
  std::string json = R"({"result":"confirmed")";
  for (const quorvel::cli::Option& option : command.options) {
    std::string value = R"("x\u8868")";
    if (option.kind == kFlag) {
      value = "true";
    } else if (option.kind == kColour) {
      value = R"("#3366ff")";
    } else if (option.kind == kCounts) {
      value = option.mostValues > 2 ? R"("2+1+3x6")" : R"("3x4")";
    } else if (option.kind == kNumbers || option.kind == kWholeNumbers) {
      value = "1";
      for (std::size_t i = 1; i < option.mostValues; ++i) {
        value += ",1";
      }
      value = option.mostValues > 1 ? "[" + value + "]" : value;
    } else if (option.kind == kItem) {
      json += R"(,"items":["x",{"name":"y","ticked":true}])";
    }
    if (option.kind != kItem && option.kind != kTickedItem) {
      json += ",\"" + quorvel::cli::MemberName(option.name) +
              "\":" + (option.isRepeatable ? "[" + value + "]" : value);
    }
  }
  return json + "}";
}

/// Each subcommand with all its options, as its table has them, and with all of them as JSON.
void WriteCommandLines(const std::filesystem::path& top) {
  const SeedFolder folder(top / "command_line");
  folder.Write("help", "--help");
  folder.Write("version", "--version");
  for (const quorvel::cli::Command& command : quorvel::cli::Commands()) {
    std::string line(command.name);
    for (const quorvel::cli::Option& option : command.options) {
      line += option.isOperand ? "\n" : "\n--" + std::string(option.name) + "\n";
      line += option.kind == quorvel::cli::OptionKind::kText ? "x" : "1,2";
    }
    folder.Write(std::string(command.name), line);
    const std::string json = JsonOf(command);
    folder.Write(std::string(command.name) + "-json",
                 std::string(command.name) + "\n--json\n" + json);
    folder.Write(std::string(command.name) + "-input",
                 std::string(command.name) + "\n--plain\n--json-file\nx" + '\0' + json);
  }
}

void WriteFieldMacros(const std::filesystem::path& top) {
  const SeedFolder folder(top / "field_macro");
  CKivValInfoOneData info;
  folder.Write("empty", info.GetMacroString("").View());

  info.SetFieldName("count");
  info.SetFindValue("10");
  info.SetRefField("price");
  for (unsigned int valType = 200; valType <= 212; ++valType) {
    info.SetValType(valType);
    info.SetFindType(static_cast<unsigned char>(valType % 7));
    info.SetBeam(static_cast<unsigned char>(valType % 11));
    info.SetUseDesimalPointBeam(static_cast<int>(valType % 2));
    info.SetUse3Figures(static_cast<int>(valType % 3));
    folder.Write("type" + std::to_string(valType), info.GetMacroString("total").View());
  }

  info.SetFindType(255);
  info.SetBeam(255);
  info.SetUse3Figures(-1);
  // Quotes, other syntax, a two-byte character that ends with a backslash, half a character.
  const std::array texts{"\"", "\"\"", "\" ref=\"", "<M>3 NAME</M>\r\n%s\\", "\x83\x5C", "\x83"};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    info.SetFieldName(texts.at(i));
    info.SetFindValue(texts.at((i + 1) % texts.size()));
    info.SetRefField(texts.at((i + 2) % texts.size()));
    folder.Write("text" + std::to_string(i), info.GetMacroString(texts.at(i)).View());
  }
}

void WriteHostValues(const std::filesystem::path& top) {
  const SeedFolder folder(top / "host_value");
  // The last one is in full width.
  const std::array texts{"12345678", "-1.2345e-5", " +2147483648 ", "nan", "inf",
                         "12e9223372036854775807", "\x82\x50\x81\x44\x82\x51"};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    folder.Write("text" + std::to_string(i), texts.at(i));
  }
  const std::array numbers{0.0, 1.0005, -1e308, 5e-324, std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::quiet_NaN()};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    folder.Write("number" + std::to_string(i),
                 {reinterpret_cast<const char*>(&numbers.at(i)), sizeof(double)});
  }
  const std::vector<COLORREF> palette = quorvel::DefaultPalette();
  const std::vector<BYTE> stored = quorvel::StoredFromPalette(palette);
  folder.Write("palette", {reinterpret_cast<const char*>(stored.data()), stored.size()});
  const LOGFONTA record = CKivFont().GetLogFont(0);
  folder.Write("font", {reinterpret_cast<const char*>(&record), sizeof record});
}

void WriteGridPages(const std::filesystem::path& top) {
  const SeedFolder folder(top / "grid_page_file");
  CLayoutPageData page;
  folder.WritePage("smallest", page);
  page.DividePage(2, 3, 8);
  page.SetType(1);
  page.SetByEdgeOutLine(1);
  page.GetCelAt(0)->SetText("text");
  page.GetCelAt(1)->SetText("\x83\x5C");
  folder.WritePage("texts", page);
  for (const int selected : {1, 2, 4, 5}) {
    page.GetCelAt(selected)->SetSelected(1);
  }
  page.MeargeCel(0, 1);
  folder.WritePage("merged", page);
}

void WriteExPages(const std::filesystem::path& top) {
  const SeedFolder folder(top / "ex_page_file");
  using ListType = CLayoutExPageData::LISTTYPE;
  CLayoutExPageData page;
  folder.WritePage("smallest", page);
  page.DividePage(ListType(2), 0, 1, 8);
  page.SetAllLengthCol(12.3F, 1);
  folder.WritePage("no_footer", page);
  page.DividePage(ListType(1), 2, 2, 8);
  page.GetCelAt(ListType(1), 0)->SetSelected(1);
  page.SetShowLine(ListType(1), 0, 0, 0, 0, 0, 0);
  page.GetCelAt(ListType(1), 2)->SetSelected(1);
  page.MeargeCel(ListType(1), 0, 0);
  folder.WritePage("merged", page);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fputs("usage: write_seeds FOLDER\n", stderr);
    return 2;
  }
  try {
    const std::filesystem::path top(arguments[1]);
    WriteCommandLines(top);
    WriteExPages(top);
    WriteExpressions(top);
    WriteFieldMacros(top);
    WriteGridPages(top);
    WriteHostValues(top);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "write_seeds: %s\n", error.what());
    return 1;
  }
  return 0;
}
