#pragma once

#include <memory>
#include <string>

#include "editor/data_editor.h"
#include "sheet/sheet_content.h"
#include "state/analysis_state.h"

namespace tolmer {

// The student's own data: the editor is made when it is first asked for, and then keeps its data.
class OwnData : public EditorData {
 public:
  // The places are looked at when they are first used; that for work aside may be null.
  OwnData(Desktop& desktop, const std::string& programFolder, VisitPlaces* const& aside)
      : desktop_(desktop), programFolder_(programFolder), aside_(aside) {}

  StudentData studentData() const override {
    return editor_ ? editor_->studentData() : StudentData();
  }
  bool UserCancel() const override { return editor_ && editor_->UserCancel(); }
  void ShowDataEditor() override { editor().ShowDataEditor(); }

  // Before the program ends; false where the student wants to stay.
  bool mayEndProgram() { return !editor_ || editor_->mayEndProgram(); }

  // The data in force as a sheet of the editor, in the digits they were written with.
  static SheetContent sheetOf(const AnalysisState& state);

  // Says at the start of the program what a crash or a kill left behind; the editor offers it.
  void tellLostWork();

  frmDataEditor& editor() {
    if (!editor_) setUp();
    return *editor_;
  }

 private:
  void setUp();

  Desktop& desktop_;
  const std::string& programFolder_;
  VisitPlaces* const& aside_;
  std::unique_ptr<frmDataEditor> editor_;
};

}  // namespace tolmer
