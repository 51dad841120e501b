#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace vorlane::practice {

enum class Kind {
  Group,
  Ledger,
  Currency,
  Unit,
  Godown,
  StockGroup,
  StockCategory,
  StockItem,
  CostCategory,
  CostCentre,
  VoucherType,
};
inline constexpr std::size_t kKindCount = 11;

/// When a master may leave out one that it refers to.
enum class Need {
  Optional,    ///< empty, or a reserved value such as "Not Applicable"
  Required,    ///< always
  IfCompound,  ///< in a unit whose ISSIMPLEUNIT is No
};

/// A child element that names another master, which must exist.
struct Reference {
  std::string_view tag;  ///< empty: no reference
  Kind kind = Kind::Group;
  Need need = Need::Optional;
};

struct MasterKind {
  Kind kind;
  std::string_view element;
  std::string_view plural;  ///< of the element; either word serves as a SUBTYPE
  std::string_view noun;    ///< in a LINEERROR
  std::array<Reference, 4> references;
};

/// One row a kind, in the order of Kind.
extern const std::array<MasterKind, kKindCount> kMasterKinds;

const MasterKind& RowOf(Kind kind);

/// Null when no master is an element of that name.
const MasterKind* FindKindByElement(std::string_view element);

/// By the SUBTYPE of an object query, singular or plural, in any case, with or
/// without blanks; null when it is none.
const MasterKind* FindKindBySubtype(std::string_view subtype);

/// A master that every company has from its beginning.
struct PredefinedMaster {
  Kind kind;
  std::string_view name;
  std::string_view alias;
  std::string_view parent;
};

inline constexpr std::size_t kPredefinedCount = 63;
extern const std::array<PredefinedMaster, kPredefinedCount> kPredefinedMasters;

}  // namespace vorlane::practice
