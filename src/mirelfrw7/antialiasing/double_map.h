#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>

namespace antialiasing {

// One table of values shared by several owners, each with its own index into it. The primary map holds
// the values; the secondary map is this object's index, and its pointers may point into the primary map
// of the master it is attached to.
template <class K1, class K2, class V, class Less1 = std::less<K1>, class Less2 = std::less<K2>,
          class Alloc = std::allocator<V>>
class double_map {
public:
    using primary_map = std::map<K1, V, Less1>;
    using secondary_map = std::map<K2, V*, Less2>;

    double_map() = default;
    double_map(double_map const& other) { *this = other; }
    // Detaches the clients first, so that none keeps a master that is gone.
    ~double_map() {
        for (double_map* client : std::set<double_map*>(m_clients))
            client->detach();
        detach();
    }

    // Copies both maps, pointing the copied index into the copy, and takes the same attachment.
    double_map& operator=(double_map const& other) {
        if (this == &other) return *this;
        detach();
        m_saved.reset();
        _copy_primary_map(other.m_primary);
        auto const moved = Addresses(other.m_primary, m_primary);
        m_secondary = Redirected(other.m_secondary, moved);
        if (other.m_saved) m_saved = std::make_unique<secondary_map>(Redirected(*other.m_saved, moved));
        if (other.m_master != &other) {
            m_master = other.m_master;
            m_master->m_clients.insert(this);
        }
        return *this;
    }

    // Uses the primary map of `master`, putting the own index away if `save`. Answers the former master, or
    // null if there was none or it is `master` already.
    double_map* attach(double_map& master, bool save) {
        if (&master == m_master) return nullptr;
        double_map* const former = m_master == this ? nullptr : m_master;
        if (former) former->m_clients.erase(this);
        if (save) {
            if (!m_saved) m_saved = std::make_unique<secondary_map>();
            *m_saved = m_secondary;
        }
        m_secondary.clear();
        m_master = &master;
        master.m_clients.insert(this);
        return former;
    }
    void detach() {
        if (m_master == this) return;
        m_master->m_clients.erase(this);
        m_secondary.clear();
        m_master = this;
        if (m_saved) {
            m_secondary = std::move(*m_saved);
            m_saved.reset();
        }
    }
    void forget_saved() { m_saved.reset(); }

    // Rebuilds the primary map with `f(key)` as keys; every index into it, its own, the saved one and the
    // clients', follows the values to their new places.
    template <class F>
    void modify_primary_keys(F f) {
        primary_map rebuilt;
        std::map<V const*, V*> moved;
        for (auto& [key, value] : m_primary)
            moved[&value] = &rebuilt.emplace(f(key), value).first->second;
        m_primary.swap(rebuilt);
        Redirect(m_secondary, moved);
        if (m_saved) Redirect(*m_saved, moved);
        for (double_map* client : m_clients)
            Redirect(client->m_secondary, moved);
    }
    template <class F>
    static void _modify_secondary_map(secondary_map& index, F f) {
        secondary_map rebuilt;
        for (auto const& [key, value] : index)
            rebuilt.emplace(f(key), value);
        index.swap(rebuilt);
    }
    void _copy_primary_map(primary_map const& values) { m_primary = values; }

    primary_map& primary() { return m_primary; }
    primary_map const& master_primary() const { return m_master->m_primary; }
    secondary_map& secondary() { return m_secondary; }
    secondary_map const& secondary() const { return m_secondary; }
    secondary_map* saved() { return m_saved.get(); }
    std::set<double_map*> const& clients() const { return m_clients; }

private:
    static std::map<V const*, V*> Addresses(primary_map const& from, primary_map& to) {
        std::map<V const*, V*> moved;
        for (auto const& [key, value] : from)
            if (auto const it = to.find(key); it != to.end()) moved[&value] = &it->second;
        return moved;
    }
    static void Redirect(secondary_map& index, std::map<V const*, V*> const& moved) {
        for (auto& [key, pointer] : index)
            if (auto const it = moved.find(pointer); it != moved.end()) pointer = it->second;
    }
    static secondary_map Redirected(secondary_map index, std::map<V const*, V*> const& moved) {
        Redirect(index, moved);
        return index;
    }

    primary_map m_primary;
    secondary_map m_secondary;
    double_map* m_master = this;
    std::unique_ptr<secondary_map> m_saved;
    std::set<double_map*> m_clients;
};

} // namespace antialiasing
