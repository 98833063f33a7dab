#include "helpers/diagnostic_tests.h"

namespace tidemark {

const std::array<DiagnosticTest, 12> kDiagnosticTests = {{
    {"CLSID", "ClassIDs", "Find invalid ClassIDs references", 0},
    {"INTERFACE", "Interfaces", "Find invalid Interface references", 0},
    {"LIB", "TypeLibs", "Find invalid Typelibs references", 0},
    {"DLL", "Shared Dll's", "Find orphaned references to shared system .dll files", 1},
    {"VDD", "Virtual Device Drivers", "Find invalid references to virtual device drivers", 1},
    {"FONT", "Font References", "Find invalid font references", 4},
    {"IFA", "File Associations", "Find invalid file association links", 2},
    {"STARTUP", "Startup", "Find invalid Startup application links", 2},
    {"APP", "Application Paths", "Find invalid Application references", 3},
    {"UNINSTALL", "Software Removal", "Find invalid Uninstaller information", 3},
    {"HELP", "Help Files", "Find invalid Help file references", 4},
    {"SHORTCUTS", "Shortcuts", "Find invalid ShortCuts references", 1},
}};

const std::array<std::string_view, 5> kSeverityWords = {"Severe", "High", "Elevated", "Guarded",
                                                        "Low"};

const DiagnosticTest* FindDiagnosticTest(std::string_view code) {
  for (const DiagnosticTest& test : kDiagnosticTests) {
    if (test.code == code) return &test;
  }
  return nullptr;
}

}  // namespace tidemark
