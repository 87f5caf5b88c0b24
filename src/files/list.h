// Lists of paths and patterns as callers write them: "C:\a;C:\b,c". Separators in a row separate like one.
#pragma once

#include <optional>
#include <string_view>

#include "strings/token.h"

namespace vx {

inline constexpr DelimiterSet kListDelimiters(";,");

// The items of a list, one after the other: for (std::string_view item : ListItems(list)) ...
class ListItems {
 public:
    class Iterator {
     public:
        Iterator(const ListItems& list, std::optional<Token> token) : list_(list), token_(token) {}
        std::string_view operator*() const { return token_->in(list_.text_); }
        Iterator& operator++() {
            token_ = list_.next(token_->end());
            return *this;
        }
        bool operator!=(const Iterator& other) const { return token_.has_value() != other.token_.has_value(); }

     private:
        const ListItems& list_;
        std::optional<Token> token_;
    };

    explicit ListItems(std::string_view text, const DelimiterSet& delimiters = kListDelimiters)
        : text_(text), delimiters_(delimiters) {}

    Iterator begin() const { return {*this, next(0)}; }
    Iterator end() const { return {*this, std::nullopt}; }
    bool empty() const { return !next(0); }

 private:
    std::optional<Token> next(std::size_t from) const { return nextToken(text_, delimiters_, from); }

    std::string_view text_;
    const DelimiterSet& delimiters_;
};

}  // namespace vx
