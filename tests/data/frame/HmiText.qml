import QtQuick 2.0

Text {}
