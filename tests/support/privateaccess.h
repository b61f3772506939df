#ifndef ZPPLUGIN_TESTS_PRIVATEACCESS_H
#define ZPPLUGIN_TESTS_PRIVATEACCESS_H

//! Gives a test a private member: an explicit instantiation may name it. Used as
//!
//!     using Read = int (Class::*)();
//!     Read privateMember(PrivateAccess<Read>);
//!     template struct PrivateMember<Read, &Class::read>;
//!
//! after which privateMember(PrivateAccess<Read>()) is the pointer to it.
template<typename Pointer>
struct PrivateAccess
{
};

template<typename Pointer, Pointer member>
struct PrivateMember
{
    friend Pointer privateMember(PrivateAccess<Pointer>) { return member; }
};

#endif
