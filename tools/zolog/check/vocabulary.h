#ifndef ZOLOG_CHECK_VOCABULARY_H
#define ZOLOG_CHECK_VOCABULARY_H

#include <iosfwd>
#include <span>
#include <string>

#include <zoerrlog/trace/ZoKnownInfo.h>

namespace zolog {

using KnownComponents = std::span<const ZoTraceComponentInfo>;
using KnownFields = std::span<const KNOWNDATAFIELDINFO>;

/// What a configuration can select, by the component libraries that were found. It belongs to the
/// default logger. Throws CommandError when that logger cannot be used.
KnownComponents GetKnownComponents();
/// The fields that a configuration can name, by number. They belong to the library.
KnownFields GetKnownFields();

/// The number of the component that `id`, its own or a sub-component's, belongs to.
unsigned int ComponentOf(unsigned int id);
/// True for a component, false for a sub-component.
bool IsWholeComponent(unsigned int id);
/// True when no component library was found: only the library's own component is known.
bool OnlyBuiltIn(KnownComponents components);

/// As in 0x07010000.
std::string IdText(unsigned int id);

/// One line for each: identifier and name.
void WriteComponents(std::ostream& stream, KnownComponents components);
/// One line for each: number, name and width.
void WriteFields(std::ostream& stream, KnownFields fields);

}  // namespace zolog

#endif
