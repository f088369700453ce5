#pragma once
#include "base/text_record.h"
#include "shell/grain_document.h"

#include <string>
#include <string_view>

enum class GrainForm { File, Work }; // with "Version1_1" (.mvd), or without (TempFile, CurrentWorkFile)

// The bytes of the file; Fault 6 at a value that is not finite.
std::string GrainText(const Design &, GrainForm);

// Reads either form and the older one (entity lines only: the document values of `design` stay), told apart
// by the first record. On success the table and document values of `design` are replaced, GrainDiam and
// LinerThickness following GrainRadius; on failure it is untouched and the text names file, line, field and
// what was expected. `name` stands for the file in that text. Lines keep Slope and Intercept as they stand in
// the file.
std::string ParseGrain(std::string_view bytes, const std::string &name, Design &design);

// One entity line, wherever such lines stand. TakeEntity returns the trouble, which names file, line, field.
void PutEntity(RecordWriter &, const Entity &);
std::string TakeEntity(RecordReader &, const std::string &name, Entity &);
std::string NotFiniteField(const Entity &); // the name of a field that cannot be written; empty: none
std::string RecordPlace(const std::string &name, const RecordReader &,
                        const char *field); // "x.mvd: line 3, "...

// Each returns the trouble, or an empty text. Writing is atomic and names a value that is not finite.
std::string ReadGrainFile(const std::string &path, Design &);
std::string WriteGrainFile(const std::string &path, const Design &);
std::string WriteWorkFile(const std::string &path, const Design &); // nothing when MacroMode is 2
std::string RecoverWorkFile(const std::string &path, Design &);     // an absent or blank file is no trouble
