// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The one window of a kind that the runtime makes at its first use: touching it creates it and
// runs its load; unloading empties the slot, so the next touch loads a new one.
template <typename Form> class WindowSlot
{
public:
    // Makes and loads the window if the slot is empty; the window is in the slot during its load.
    template <typename Make, typename Load> Form* Touch(Make make, Load load)
    {
        if (!form) {
            form = make();
            load(form);
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
    void Forget(const void* gone)
    {
        if (static_cast<const void*>(form) == gone)
            form = nullptr;
    }

private:
    Form* form = nullptr;
};

#include <QCloseEvent>
#include <QDialog>

// A dialog that is the one window of its kind: loaded at its first use, unloaded by Unload, its
// close box or Escape, and gone with the window that owns it. Form declares this its friend, so
// that only Instance makes it.
template <typename Form> class SingleDialog : public QDialog
{
public:
    // The dialog, made and loaded with these arguments if it is not loaded yet.
    template <typename... Arguments> static Form* Instance(QWidget* owner, Arguments&&... arguments)
    {
        return slot().Touch(
            [&] { return new Form(owner, std::forward<Arguments>(arguments)...); }, [](Form* form) { form->load(); });
    }
    static Form* Loaded() { return slot().Loaded(); }
    static void Unload()
    {
        if (Form* form = slot().Take()) {
            if constexpr (requires { form->onUnload(); })
                form->onUnload();
            form->hide();
            form->deleteLater();
        }
    }
    // Form is the first and only base path here, so both name the same address.
    ~SingleDialog() override { slot().Forget(static_cast<const void*>(this)); }

protected:
    explicit SingleDialog(QWidget* owner)
        : QDialog(owner)
    {
    }
    void closeEvent(QCloseEvent* event) override
    {
        Unload();
        event->accept();
    }
    void reject() override { Unload(); }

private:
    static WindowSlot<Form>& slot()
    {
        static WindowSlot<Form> form;
        return form;
    }
};
