#include "host/engine/SC_SceneManager.h"

#include "host/engine/TUScene.h"

#include <vector>

namespace {

// One slot of the table: a null scene marks a free slot.
struct Slot
{
    quint64 key = 0;
    SC_SceneBase* scene = nullptr;
};

} // namespace

// An open-addressing table with linear probing, kept at most half full: a lookup
// usually reads one slot, whatever the number of scenes.
class SC_SceneManager::SC_SceneManagerPrivate
{
public:
    std::vector<Slot> slots = std::vector<Slot>(16);
    unsigned count = 0;

    size_t mask() const { return slots.size() - 1; }
    size_t home(quint64 key) const { return size_t((key * 0x9E3779B97F4A7C15ull) >> 17) & mask(); }

    // The slot that holds the key, or the free slot where it would go.
    size_t probe(quint64 key) const
    {
        size_t i = home(key);
        while (slots[i].scene && slots[i].key != key)
            i = (i + 1) & mask();
        return i;
    }

    void grow()
    {
        std::vector<Slot> old(slots.size() * 2);
        old.swap(slots);
        for (Slot const& slot : old) {
            if (slot.scene)
                slots[probe(slot.key)] = slot;
        }
    }

    // Empties a slot and moves later entries of its probe run back into the hole.
    void erase(size_t hole)
    {
        slots[hole] = Slot();
        for (size_t i = (hole + 1) & mask(); slots[i].scene; i = (i + 1) & mask()) {
            size_t const wanted = home(slots[i].key);
            // The entry may fill the hole when its home is not in (hole, i].
            bool const stays = hole <= i ? (wanted > hole && wanted <= i) : (wanted > hole || wanted <= i);
            if (!stays) {
                slots[hole] = slots[i];
                slots[i] = Slot();
                hole = i;
            }
        }
    }
};

SC_SceneManager::SC_SceneManager()
    : d(new SC_SceneManagerPrivate)
{
}

SC_SceneManager::~SC_SceneManager()
{
    delete d;
}

SC_SceneBase* SC_SceneManager::find(SC_Id const& id) const
{
    return d->slots[d->probe(id.value())].scene;
}

unsigned SC_SceneManager::count() const
{
    return d->count;
}

bool SC_SceneManager::add(SC_SceneBase* scene)
{
    if (!scene || find(scene->id))
        return false;
    if (2 * (d->count + 1) > d->slots.size())
        d->grow();
    d->slots[d->probe(scene->id.value())] = Slot { scene->id.value(), scene };
    ++d->count;
    return true;
}

bool SC_SceneManager::remove(SC_Id const& id)
{
    size_t const slot = d->probe(id.value());
    if (!d->slots[slot].scene)
        return false;
    d->erase(slot);
    --d->count;
    return true;
}
