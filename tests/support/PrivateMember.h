#pragma once

namespace VelmoraTest {

/// Gives a test a private member of a class whose public interface has no room for it. An explicit instantiation may name one:
///
///     struct Backgrounds
///     {
///         using Type = QHash<int, QString> Control::*;
///         friend Type MemberOf(Backgrounds);
///     };
///     template struct PrivateMember<Backgrounds, &Control::m_backgrounds>;
///
///     control.*MemberOf(Backgrounds())
template <typename Tag, typename Tag::Type Member>
struct PrivateMember
{
    friend typename Tag::Type MemberOf(Tag) { return Member; }
};

} // namespace VelmoraTest
