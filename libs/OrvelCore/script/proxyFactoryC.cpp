#include <OrvelCore/script/proxyFactoryC.h>

#include <OrvelCore/script/registrationOwner_p.h>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <vector>

namespace {

struct Class
{
    proxyMemberDescListS const *list;
    void const *owner;
};

struct Registry
{
    std::mutex mutex;
    std::vector<Class> classes;

    proxyMemberDescListS const *find(char const *identifier) const
    {
        for (Class const &known : classes) {
            char const *own = known.list->objectIdentifier;
            if (own != nullptr && std::strcmp(own, identifier) == 0) {
                return known.list;
            }
        }
        return nullptr;
    }
};

// Never destroyed: libraries take their things away after the static objects of this one are gone.
Registry &registry()
{
    static Registry *const instance = new Registry;
    return *instance;
}

} // namespace

proxyFactoryC &proxyFactoryC::instance()
{
    static proxyFactoryC factory;
    return factory;
}

void proxyFactoryC::registerClass(proxyMemberDescListS const *list)
{
    Registry &known = registry();
    Class const added = {list, serverEvents::notified()};
    std::lock_guard<std::mutex> const lock(known.mutex);
    proxyMemberDescListS const *old =
        list->objectIdentifier != nullptr ? known.find(list->objectIdentifier) : nullptr;
    for (Class &entry : known.classes) {
        if (entry.list == old || entry.list == list) {
            entry = added;
            return;
        }
    }
    known.classes.push_back(added);
}

mzComPtrT<proxyObjectC> proxyFactoryC::create(mzIIDS const &objectIdentifier) const
{
    proxyMemberDescListS const *list = findClass(objectIdentifier);
    if (list == nullptr || list->creator == nullptr) {
        return mzComPtrT<proxyObjectC>();
    }
    return mzComPtrT<proxyObjectC>(list->creator());
}

proxyMemberDescListS const *proxyFactoryC::findClass(mzIIDS const &objectIdentifier) const
{
    Registry &known = registry();
    std::lock_guard<std::mutex> const lock(known.mutex);
    return known.find(objectIdentifier.name);
}

QVector<proxyMemberDescListS const *> proxyFactoryC::classes() const
{
    Registry &known = registry();
    std::lock_guard<std::mutex> const lock(known.mutex);
    QVector<proxyMemberDescListS const *> lists;
    for (Class const &entry : known.classes) {
        lists.append(entry.list);
    }
    return lists;
}

void classRegistry::removeOwner(void const *owner) noexcept
{
    Registry &known = registry();
    std::lock_guard<std::mutex> const lock(known.mutex);
    known.classes.erase(
        std::remove_if(known.classes.begin(), known.classes.end(),
                       [owner](Class const &entry) { return entry.owner == owner; }),
        known.classes.end());
}
