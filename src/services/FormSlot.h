#pragma once
// The one window of a kind that the runtime makes at its first use: touching it creates it and
// runs its Form_Load; unloading empties the slot, so the next touch loads a new one.
template <typename Form> class FormSlot
{
public:
    template <typename Make> Form* Touch(Make make)
    {
        if (!form) {
            form = make();
            form->Form_Load();
        }
        return form;
    }
    Form* Loaded() const { return form; }
    // The window to unload, or null; the slot is empty from here on.
    Form* Take()
    {
        Form* taken = form;
        form = nullptr;
        return taken;
    }

    // A window that goes with its owner leaves the slot empty behind it.
    void Forget(const Form* gone)
    {
        if (form == gone)
            form = nullptr;
    }

private:
    Form* form = nullptr;
};
