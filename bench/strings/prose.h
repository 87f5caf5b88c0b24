// Text with the letter and word frequencies of plain English, always the same.
#pragma once

#include <random>
#include <string>

namespace vx::bench {

inline std::string proseOf(std::size_t size) {
    static const char* const words[] = {
        "the",  "of",    "and",    "to",       "a",       "in",    "is",    "that", "it",    "was",   "for",  "on",
        "are",  "with",  "as",     "his",      "they",    "be",    "at",    "one",  "have",  "this",  "from", "by",
        "hot",  "word",  "but",    "what",     "some",    "we",    "can",   "out",  "other", "were",  "all",  "there",
        "when", "up",    "use",    "your",     "how",     "said",  "an",    "each", "she",   "which", "do",   "their",
        "time", "if",    "will",   "way",      "about",   "many",  "then",  "them", "write", "would", "like", "so",
        "ring", "these", "her",    "long",     "make",    "thing", "see",   "him",  "two",   "has",   "look", "more",
        "day",  "could", "go",     "coming",   "did",     "my",    "sound", "no",   "most",  "known", "over", "people",
        "than", "first", "waters", "crossing", "walking", "down",
    };
    std::mt19937 random(1);
    std::string text;
    text.reserve(size + 16);
    while (text.size() < size) {
        text += words[random() % std::size(words)];
        text += random() % 12 ? " " : ", ";
    }
    text.resize(size);
    return text;
}

}  // namespace vx::bench
