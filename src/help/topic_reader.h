// The source of one help page: lines "key: value", a blank line, the body.
//
//   title: Estimated Coefficients
//   opens: tolmod 231, dataedit
//   keywords: t, confidence limits
//
//   Body in the markup of topic_page.h.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/error.h"
#include "help/help_topic.h"

namespace tolmer {

// The page in `text` (UTF-8), named `name`. An error names that page and the line.
Result<HelpTopic> readTopic(const std::string& name, std::string_view text);

// A name of lower-case letters, digits and hyphens, at most 40 of them: such a name never leaves
// the folder of the help.
bool isTopicName(std::string_view name);

// "tolmod 231" or "tolmod"; nullopt for anything else.
std::optional<HelpAddress> parseHelpAddress(std::string_view text);

}  // namespace tolmer
