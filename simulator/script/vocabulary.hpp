#pragma once
// Words of a script's own, from a file: names for what an injected library shows and writes down, so that scripts read
// well and the simulator itself need not know the library.

#include "script/words.hpp"

#include <map>
#include <utility>

namespace sim::script {

class Vocabulary {
  public:
    /// Adds the definitions of a file: lines `KIND NAME [PARAMETER…] means WORDS`. A word goes before one of the
    /// simulator's own. Throws ScriptError.
    void Load(const std::string &file);

    /// When the next word is defined for this kind of things, steps over it and its parameters and gives what they
    /// mean; otherwise nothing. Throws ScriptError when parameters are missing.
    std::optional<std::vector<Word>> Take(const std::string &kind, WordReader &words) const;

  private:
    struct Definition {
        std::vector<std::string> parameters;
        std::vector<Word> meaning;
    };
    std::map<std::pair<std::string, std::string>, Definition> definitions_; // by kind and name
};

/// The vocabulary of this process's one script.
Vocabulary &TheVocabulary();

} // namespace sim::script
