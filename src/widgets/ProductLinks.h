// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's links: web pages on the maker's server and documents beside the program,
// each chosen by the interface language in the registry at the moment of the call. A link
// whose language is not one of the three opens nothing, and no link reports a failure.
#include <QString>

class QWidget;

// The maker's web server: the build's setting, or TOLVANE_SERVER_ADDRESS when set.
QString ServerAddress();

// Hands a target to the shell with no owner and no verb, failures ignored; the shell's result.
int OpenLinkTarget(const QString& target);

void LinkHomePage();
void LinkReadMe();
void LinkUpdatePage();
void LinkLicence();
void LinkSupportPage();
void LinkForum();
void LinkContactPage();
