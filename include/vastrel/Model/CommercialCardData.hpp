#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace vastrel {

// The extra fields that commercial (purchasing) cards need, by field name (the
// CommercialCardDataField display strings are the natural keys).
class CommercialCardData {
  public:
    using Values = std::map<std::string, std::string>;

    const std::optional<Values>& commercialCardDataValuesDictionary() const {
        return commercialCardDataValuesDictionary_;
    }
    void setCommercialCardDataValuesDictionary(std::optional<Values> v) {
        commercialCardDataValuesDictionary_ = std::move(v);
    }

  private:
    std::optional<Values> commercialCardDataValuesDictionary_;
};

}  // namespace vastrel
